// The office form on FLTK 1.3, under X. The X server does the drawing, so its time counts.
#include <cstdlib>
#include <cstring>
#include <memory>

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Group.H>
#include <FL/Fl_Input.H>
#include <FL/Fl_Multiline_Input.H>
#include <FL/Fl_RGB_Image.H>
#include <FL/Fl_Window.H>
#include <FL/fl_draw.H>
#include <FL/x.H>

#include "measure.h"
#include "office_form.h"

namespace {

using office::Item;
using office::Kind;

Fl_Color fltk_colour(std::uint32_t colour) {
    return fl_rgb_color(static_cast<uchar>(colour >> 16), static_cast<uchar>(colour >> 8),
                        static_cast<uchar>(colour));
}

Fl_Image *image_of(Kind kind) {
    const auto pixels = office::picture(kind == Kind::translucent_picture);
    auto *const bytes = new uchar[pixels.size() * 4]; // kept as long as the program runs
    for (std::size_t k = 0; k < pixels.size(); ++k) {
        constexpr int shifts[] = {16, 8, 0, 24}; // red, green, blue, alpha
        for (int c = 0; c < 4; ++c)
            bytes[4 * k + static_cast<std::size_t>(c)] = static_cast<uchar>(pixels[k] >> shifts[c]);
    }
    return new Fl_RGB_Image(bytes, office::picture_size, office::picture_size, 4);
}

// Widgets belong to the group that is open when they are made, and are deleted with the window.
class Form {
public:
    enum class Area { forty_lines, long_text };

    explicit Form(Area kind) : area_kind_(kind) {
        Fl::set_font(FL_HELVETICA, office::font_name);
        Fl::visual(FL_RGB);
        top = std::make_unique<Fl_Window>(0, 0, office::width, office::height);
        top->color(fltk_colour(office::colour::desk));
        for (const Item &item : office::items()) add(item);
        group_->end();
        top->end();
        top->show();
        top->wait_for_expose();
        finish();
    }

    // Draws what has to be drawn, and waits until the X server has done so.
    static void finish() {
        Fl::flush();
        XSync(fl_display, False);
    }

    std::unique_ptr<Fl_Window> top;
    Fl_Multiline_Input *area = nullptr;

private:
    void add(const Item &item) {
        if (item.kind == Kind::window) return open_window(item);
        Fl_Widget *const widget = widget_for(item);
        widget->labelsize(office::font_size);
        widget->copy_label(label_of(item));
    }

    void open_window(const Item &item) {
        if (group_ != nullptr) group_->end();
        group_ = new Fl_Group(item.x, item.y, item.width, item.height);
        group_->box(FL_UP_BOX);
        group_->color(fltk_colour(office::colour::face));
    }

    // Fields and texts show a value; a label would stand beside them.
    static const char *label_of(const Item &item) {
        if (item.kind == Kind::frame_button) return "=";
        return item.kind == Kind::entry ? "" : item.text.c_str();
    }

    Fl_Widget *widget_for(const Item &item) {
        switch (item.kind) {
        case Kind::label:
            return box(item, FL_UP_BOX, office::colour::face, FL_ALIGN_LEFT);
        case Kind::title:
            return box(item, FL_FLAT_BOX, office::colour::title, FL_ALIGN_CENTER);
        case Kind::entry:
            return entry(item);
        case Kind::text_area:
            return text_area(item);
        case Kind::picture:
        case Kind::translucent_picture:
            return picture(item);
        default:
            return button(item);
        }
    }

    static Fl_Widget *box(const Item &item, Fl_Boxtype type, std::uint32_t colour, Fl_Align align) {
        auto *const box = new Fl_Box(type, item.x, item.y, item.width, item.height, nullptr);
        box->color(fltk_colour(colour));
        box->align(align | FL_ALIGN_INSIDE | FL_ALIGN_CLIP);
        return box;
    }

    static Fl_Widget *button(const Item &item) {
        auto *const button = new Fl_Button(item.x, item.y, item.width, item.height);
        button->color(fltk_colour(office::colour::face));
        return button;
    }

    static Fl_Widget *picture(const Item &item) {
        Fl_Widget *const frame = box(item, FL_DOWN_BOX, office::colour::face, FL_ALIGN_CENTER);
        frame->image(image_of(item.kind));
        return frame;
    }

    static Fl_Widget *entry(const Item &item) {
        auto *const entry = new Fl_Input(item.x, item.y, item.width, item.height);
        entry->value(item.text.c_str());
        entry->textsize(office::font_size);
        return entry;
    }

    Fl_Widget *text_area(const Item &item) {
        const bool is_long = area_kind_ == Area::long_text;
        const std::string text = is_long ? office::long_text_with_room() : office::area_text();
        area = new Fl_Multiline_Input(item.x, item.y, item.width, item.height);
        area->wrap(is_long);
        area->value(text.c_str());
        area->textsize(office::font_size);
        area->position(0);
        return area;
    }

    const Area area_kind_;
    Fl_Group *group_ = nullptr;
};

void strike(Form &form, int key, const char *text) {
    Fl::e_keysym = key;
    Fl::e_text = const_cast<char *>(text);
    Fl::e_length = static_cast<int>(std::strlen(text));
    Fl::handle(FL_KEYBOARD, form.top.get());
    Form::finish();
}

void redraw() {
    measure::count_x_server();
    Form form(Form::Area::forty_lines);
    measure::say_time("redraw", [&form] {
        form.top->redraw();
        Form::finish();
    });
}

void key() {
    measure::count_x_server();
    Form form(Form::Area::long_text);
    form.area->take_focus();
    form.area->position(office::caret_index);
    Form::finish();
    bool letter_is_next = true;
    measure::say_time("key", [&form, &letter_is_next] {
        if (letter_is_next)
            strike(form, 'x', "x");
        else
            strike(form, FL_BackSpace, "");
        letter_is_next = !letter_is_next;
    });
    measure::demand(form.area->value() == office::long_text_with_room(),
                    "the keys changed the text");
}

} // namespace

int main(int argc, char **argv) {
    return measure::run(argc, argv, {{"redraw", redraw}, {"key", key}});
}
