// The office form on Dear ImGui, as far as it goes without a graphics card: a frame ends with lists
// of vertices, and nothing turns them into pixels.
#include <cstdio>
#include <cstring>
#include <map>

#include <imgui.h>

#include "measure.h"
#include "office_form.h"

namespace {

using office::Item;
using office::Kind;

constexpr float font_pixels = 16.3F; // as high as the others' 14 points
constexpr ImU32 face = IM_COL32(212, 208, 200, 255), edge = IM_COL32(128, 128, 128, 255);
constexpr auto window_flags =
    ImGuiWindowFlags_NoTitleBar | ImGuiWindowFlags_NoScrollbar | ImGuiWindowFlags_NoResize;

ImVec2 point(int x, int y) { return {static_cast<float>(x), static_cast<float>(y)}; }

class Form {
public:
    explicit Form(std::string area_text) : items_(office::items()), area_(std::move(area_text)) {
        ImGui::CreateContext();
        ImGuiIO &io = ImGui::GetIO();
        io.IniFilename = nullptr;
        io.DisplaySize = point(office::width, office::height);
        io.DeltaTime = 1 / 60.0F;
        io.Fonts->AddFontFromFileTTF(office::font_path, font_pixels);
        unsigned char *pixels = nullptr;
        int width = 0, height = 0;
        io.Fonts->GetTexDataAsAlpha8(&pixels, &width, &height);
        ImGui::GetStyle().FrameBorderSize = 1;
        area_.resize(area_.size() + 100); // room to type
        for (Item &item : items_) item.text.resize(item.text.size() + 100);
    }
    ~Form() { ImGui::DestroyContext(); }
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    void make_frame() {
        ImGui::NewFrame();
        const Item desk{Kind::window, -1, 0, 0, office::width, office::height, ""};
        begin(desk);
        for (std::size_t k = 0; k < items_.size(); ++k) {
            if (items_[k].kind == Kind::window) {
                ImGui::End();
                begin(items_[k]);
                continue;
            }
            ImGui::PushID(static_cast<int>(k));
            make(items_[k]);
            ImGui::PopID();
        }
        ImGui::End();
        ImGui::Render();
        measure::demand(ImGui::GetDrawData()->TotalVtxCount > 0, "the frame is empty");
    }

private:
    void begin(const Item &window) {
        origin_x_ = window.x;
        origin_y_ = window.y;
        char name[16];
        std::snprintf(name, sizeof name, "window %d", window.window);
        ImGui::SetNextWindowPos(point(window.x, window.y));
        ImGui::SetNextWindowSize(point(window.width, window.height));
        ImGui::Begin(name, nullptr, window_flags);
    }

    void make(Item &item) {
        const ImVec2 size = point(item.width, item.height);
        ImGui::SetCursorPos(point(item.x - origin_x_, item.y - origin_y_));
        switch (item.kind) {
        case Kind::label:
        case Kind::title:
            return make_label(item);
        case Kind::entry:
            ImGui::SetNextItemWidth(size.x);
            ImGui::InputText("##entry", item.text.data(), item.text.size());
            return;
        case Kind::text_area:
            ImGui::InputTextMultiline("##area", area_.data(), area_.size(), size);
            return;
        case Kind::button:
            ImGui::Button(item.text.c_str(), size);
            return;
        case Kind::frame_button:
            ImGui::Button("=", size);
            return;
        default:
            make_picture();
        }
    }

    static void make_label(const Item &item) {
        const ImVec2 first = point(item.x, item.y);
        const ImVec2 last = point(item.x + item.width, item.y + item.height);
        ImGui::GetWindowDrawList()->AddRectFilled(first, last, face);
        ImGui::GetWindowDrawList()->AddRect(first, last, edge, 0, 0, 2);
        ImGui::TextUnformatted(item.text.c_str());
    }

    static void make_picture() {
        ImGui::Image(ImGui::GetIO().Fonts->TexID,
                     point(office::picture_size, office::picture_size));
    }

    std::vector<Item> items_;
    std::string area_;
    int origin_x_ = 0, origin_y_ = 0;
};

// A key makes a whole frame, too, so the two works differ in the text only.
void redraw() {
    Form form(office::area_text());
    measure::say_time("redraw", [&form] { form.make_frame(); });
}

void key() {
    Form form(office::long_text_with_room());
    measure::say_time("key", [&form] { form.make_frame(); });
}

} // namespace

int main(int argc, char **argv) {
    return measure::run(argc, argv, {{"redraw", redraw}, {"key", key}});
}
