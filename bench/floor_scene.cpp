#include "floor_scene.h"

#include <algorithm>

namespace office {
namespace {

constexpr int field_margin = 5, button_margin = 4, title_margin = 24, title_room = 200;

Uint16 narrow(int pixels) { return static_cast<Uint16>(pixels); }
Sint16 place(int pixels) { return static_cast<Sint16>(pixels); }

} // namespace

FloorScene::FloorScene(const Display &display) : display_(display) {
    fill({0, 0, width, height}, colour::desk);
    for (const Item &item : items()) add(item);
}

FloorScene::~FloorScene() {
    for (const auto &step : steps_) {
        if (const Blit *const blit = std::get_if<Blit>(&step)) SDL_FreeSurface(blit->source);
    }
}

void FloorScene::draw() const {
    for (const auto &step : steps_) {
        std::visit([this](const auto &call) { draw(call); }, step);
    }
}

FloorScene::Box FloorScene::Box::smaller_by(int edge) const {
    return {x + edge, y + edge, width - 2 * edge, height - 2 * edge};
}

// --- The form as steps

void FloorScene::add(const Item &item) {
    const Box box{item.x, item.y, item.width, item.height};
    const auto inner = [&box](int margin) {
        return Box{box.x + margin, box.y + 2, box.width - 2 * margin, box.height - 4};
    };
    switch (item.kind) {
    case Kind::label:
        fill(box, colour::face);
        raised(box);
        return text(item.text, inner(field_margin));
    case Kind::entry:
        fill(box, colour::entry);
        sunken(box);
        return text(item.text, inner(field_margin));
    case Kind::button:
        fill(box, colour::face);
        raised(box);
        return text(item.text, inner(button_margin), Align::centre);
    case Kind::title:
        fill(box, colour::title);
        return text(item.text, {box.x + title_margin, box.y, title_room, box.height});
    case Kind::window:
        return add_window(item);
    case Kind::frame_button:
        return add_frame_button(item);
    case Kind::text_area:
        return add_text_area(item);
    case Kind::picture:
    case Kind::translucent_picture:
        return add_picture(item);
    }
}

void FloorScene::add_window(const Item &item) {
    const Box box{item.x, item.y, item.width, item.height};
    fill(box, colour::face);
    ring(box, {colour::black, colour::black});
    ring(box.smaller_by(1), {colour::light, colour::dark});
    ring(box.smaller_by(2), {colour::face, colour::dark});
}

void FloorScene::add_frame_button(const Item &item) {
    const Box box{item.x, item.y, item.width, item.height};
    fill(box, colour::face);
    raised(box);
    for (const int y : {5, 8, 11}) line(box.x + 4, box.y + y, 8, false, colour::black);
}

void FloorScene::add_text_area(const Item &item) {
    const Box box{item.x, item.y, item.width, item.height};
    fill(box, colour::entry);
    sunken(box);
    for (int k = 0; k < area_lines_in_sight; ++k) {
        const int y = box.y + 4 + k * line_height;
        text(area_line(k), {box.x + field_margin, y, box.width - 2 * field_margin, line_height});
    }
}

void FloorScene::add_picture(const Item &item) {
    sunken({item.x, item.y, item.width, item.height});
    const SDL_Rect whole{0, 0, narrow(picture_size), narrow(picture_size)};
    steps_.push_back(Blit{picture_of(item.kind), whole, place(item.x + 2), place(item.y + 2)});
}

void FloorScene::fill(const Box &box, std::uint32_t colour) {
    const SDL_Rect area{place(box.x), place(box.y), narrow(box.width), narrow(box.height)};
    steps_.push_back(Fill{area, display_.pixel_of(colour)});
}

void FloorScene::line(int x, int y, int length, bool upright, std::uint32_t colour) {
    steps_.push_back(Line{x, y, length, upright, display_.pixel_of(colour)});
}

void FloorScene::ring(const Box &box, Edge edge) {
    line(box.x, box.y, box.width, false, edge.top_left);
    line(box.x, box.y, box.height, true, edge.top_left);
    line(box.x, box.y + box.height - 1, box.width, false, edge.bottom_right);
    line(box.x + box.width - 1, box.y, box.height, true, edge.bottom_right);
}

void FloorScene::raised(const Box &box) {
    ring(box, {colour::light, colour::black});
    ring(box.smaller_by(1), {colour::face, colour::dark});
}

void FloorScene::sunken(const Box &box) {
    ring(box, {colour::dark, colour::light});
    ring(box.smaller_by(1), {colour::black, colour::face});
}

void FloorScene::text(const std::string &string, const Box &box, Align align) {
    SDL_Surface *const surface =
        TTF_RenderText_Blended(display_.font, string.c_str(), {0, 0, 0, 0});
    measure::demand(surface != nullptr, "a text cannot be rendered");
    const int w = std::min(box.width, surface->w), h = std::min(box.height, surface->h);
    const int x = align == Align::centre ? box.x + (box.width - w) / 2 : box.x;
    const int y = box.y + (box.height - h) / 2;
    steps_.push_back(Blit{surface, {0, 0, narrow(w), narrow(h)}, place(x), place(y)});
}

// --- What a step does

void FloorScene::draw(const Fill &step) const {
    SDL_Rect area = step.area;
    SDL_FillRect(display_.screen, &area, step.pixel);
}

void FloorScene::draw(const Line &step) const {
    const SDL_Surface &screen = *display_.screen;
    const int pitch = screen.pitch / static_cast<int>(sizeof(Uint32));
    const int limit = step.upright ? screen.h - step.y : screen.w - step.x;
    const int length = std::min(step.length, limit), stride = step.upright ? pitch : 1;
    Uint32 *pixel = static_cast<Uint32 *>(screen.pixels) + step.y * pitch + step.x;
    for (int k = 0; k < length; ++k, pixel += stride) *pixel = step.pixel;
}

void FloorScene::draw(const Blit &step) const {
    SDL_Rect part = step.part, target{step.x, step.y, 0, 0};
    SDL_UpperBlit(step.source, &part, display_.screen, &target);
}

} // namespace office
