// A clipboard that programs share, as the state holds it. For the clipboard.
#pragma once

#include <string>

namespace velumo {

enum class Board { clipboard, primary };

class SharedClipboard {
public:
    virtual ~SharedClipboard() = default;

    // Other programs get this text from now on. Throws std::bad_alloc.
    virtual void own(Board board, std::string text) = 0;
    virtual bool owns(Board board) const = 0;
    // What the program that owns it has; empty when there is none. Throws std::bad_alloc.
    virtual std::string fetch(Board board) = 0;
    // Answers what other programs have asked for; false when the connection is lost. Throws
    // std::bad_alloc.
    virtual bool serve() = 0;
    virtual int descriptor() const = 0;
};

} // namespace velumo
