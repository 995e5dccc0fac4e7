#include "check/check_form.h"

#include <algorithm>
#include <cstring>

#include <SDL_ttf.h>
#include <fmt/format.h>

#include "form/record_bytes.h"

namespace velform {
namespace {

constexpr std::size_t longest_word = 70; // characters; longer ones are split in any case

std::string in_pixels(std::int64_t count) {
    return fmt::format("{} pixel{}", count, count == 1 ? "" : "s");
}

// The words and captions of an object that is loaded, in the font that it is drawn with.
class WordCheck {
public:
    WordCheck(const CheckedForm &form, const CheckedObject &object, vel_context &ctx)
        : form_(form), o_(object), ctx_(ctx), loaded_(ctx.objects[object.number]),
          font_(loaded_.font_choice == 1 ? loaded_.own_font : ctx.font) {}

    void run() {
        if (font_ == nullptr || loaded_.font_choice > 1 || o_.box.is_empty()) return;
        if (o_.type == VEL_TYPE_LABEL) check_caption();
        if (form_.is_field(o_)) check_field();
        const bool has_text = o_.type == VEL_TYPE_WINDOW || o_.type == VEL_TYPE_TEXT;
        if (has_text && loaded_.text_index != 0 && loaded_.text_index <= ctx_.text_count)
            check_text();
    }

private:
    std::int64_t width_of(const std::string &words) const {
        int width = 0, height = 0;
        TTF_SizeText(font_, words.c_str(), &width, &height);
        return width;
    }
    std::int64_t height() const { return TTF_FontHeight(font_); }

    // Formatting centres the caption, by the left and upper margins, where there is room.
    void check_caption() const {
        const std::string caption(loaded_.label, strnlen(loaded_.label, sizeof loaded_.label));
        if (caption.empty()) return;
        vel_format_small_obj(&ctx_, o_.number);
        const auto missing = [](std::int64_t before, std::int64_t needed, std::int64_t after,
                                std::int64_t size) { return before + needed + after - size; };
        const std::int64_t across =
            missing(loaded_.margin_left, width_of(caption), loaded_.margin_right, loaded_.width);
        const std::int64_t down =
            missing(loaded_.margin_top, height(), loaded_.margin_bottom, loaded_.height);
        if (across > 0) {
            form_.report(Rule::caption_too_wide, o_, Field::label,
                         fmt::format("the caption needs {} more; it is cut", in_pixels(across)));
        }
        if (down > 0) {
            form_.report(Rule::caption_too_high, o_, Field::height,
                         fmt::format("the caption needs {} more in height", in_pixels(down)));
        }
    }

    void check_field() const {
        const std::int64_t room = form_.inside(o_).height();
        if (room >= height()) return;
        form_.report(Rule::field_too_low, o_, Field::height,
                     fmt::format("the field needs {} more in height, or deleting scrolls its text "
                                 "out of sight",
                                 in_pixels(height() - room)));
    }

    void check_text() const {
        vel_format_object_text(&ctx_, o_.number);
        const char *const text = ctx_.text_recs[loaded_.text_index].text;
        const std::string whole(text, strnlen(text, VEL_TEXT_SIZE));
        check_line_width();
        if (whole.empty()) return;
        check_words(whole);
        const std::size_t hidden = letters_in(whole) - std::min(letters_in(whole), shown_letters());
        if (hidden == 0) return;
        form_.report(Rule::too_many_lines, o_, Field::text,
                     fmt::format("the text has more than {} lines; its last {} letter{} not shown",
                                 VEL_TEXT_LINES, hidden, hidden == 1 ? " is" : "s are"));
    }

    // Lines that are wider than the object are cut, and much narrower ones waste it.
    void check_line_width() const {
        const std::int64_t said = form_.number(o_, Field::line_width);
        const std::int64_t room = form_.inside(o_).width();
        if (said == 0 || room <= 0 || (said <= room && said * 4 >= room * 3)) return;
        form_.report(Rule::stale_line_width, o_, Field::line_width,
                     fmt::format("lines are broken at {} pixels, but there is room for {}; 0 takes "
                                 "all the room there is",
                                 said, room));
    }

    void check_words(const std::string &text) const {
        const std::int64_t room = loaded_.line_width;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find_first_of(" \n", at), text.size());
            const std::string word = text.substr(at, std::min(end - at, longest_word));
            const std::int64_t missing = width_of(word) - room;
            if (missing > 0) {
                form_.report(Rule::word_too_wide, o_, Field::text,
                             fmt::format("\"{}\" needs {} more, so it is split", utf8_of(word),
                                         in_pixels(missing)));
                return;
            }
            at = end + 1;
        }
    }

    static std::size_t letters_in(std::string_view text) {
        return static_cast<std::size_t>(
            std::ranges::count_if(text, [](char c) { return c != ' ' && c != '\n'; }));
    }

    std::size_t shown_letters() const {
        std::size_t count = 0;
        const char *const lines = ctx_.text_bufs[loaded_.text_index];
        for (std::size_t line = 0; line < VEL_TEXT_LINES; ++line) {
            const char *const begin = lines + line * VEL_LINE_SIZE;
            count += letters_in({begin, strnlen(begin, VEL_LINE_SIZE)});
        }
        return count;
    }

    const CheckedForm &form_;
    const CheckedObject &o_;
    vel_context &ctx_;
    const vel_object &loaded_;
    TTF_Font *const font_;
};

} // namespace

void check_words(const CheckedForm &form, vel_context &ctx) {
    for (const CheckedObject &o : form.own_objects()) {
        if (o.number <= ctx.object_count && o.root != 0) WordCheck(form, o, ctx).run();
    }
}

} // namespace velform
