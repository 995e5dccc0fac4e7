// The office form as a list of the SDL calls that it takes: the least that a full redraw needs.
// Texts are rendered when the list is made. For floor.cpp.
#pragma once

#include <variant>
#include <vector>

#include "display.h"

namespace office {

class FloorScene {
public:
    explicit FloorScene(const Display &display);
    ~FloorScene();
    FloorScene(const FloorScene &) = delete;
    FloorScene &operator=(const FloorScene &) = delete;

    void draw() const;

private:
    struct Fill {
        SDL_Rect area;
        Uint32 pixel;
    };
    struct Line {
        int x, y, length;
        bool upright;
        Uint32 pixel;
    };
    struct Blit {
        SDL_Surface *source;
        SDL_Rect part;
        Sint16 x, y;
    };
    struct Box {
        int x, y, width, height;
        Box smaller_by(int edge) const;
    };
    struct Edge {
        std::uint32_t top_left, bottom_right;
    };
    enum class Align { left, centre };

    void add(const Item &item);
    void add_window(const Item &item);
    void add_frame_button(const Item &item);
    void add_text_area(const Item &item);
    void add_picture(const Item &item);

    void fill(const Box &box, std::uint32_t colour);
    void line(int x, int y, int length, bool upright, std::uint32_t colour);
    void ring(const Box &box, Edge edge);
    void raised(const Box &box);
    void sunken(const Box &box);
    void text(const std::string &string, const Box &box, Align align = Align::left);

    void draw(const Fill &step) const;
    void draw(const Line &step) const;
    void draw(const Blit &step) const;

    const Display &display_;
    std::vector<std::variant<Fill, Line, Blit>> steps_;
};

} // namespace office
