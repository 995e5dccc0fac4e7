// The office form on Qt 5 widgets, in the style "windows", drawn in memory.
#include <cstdlib>
#include <optional>

#include <QtWidgets>

#include "measure.h"
#include "office_form.h"

namespace {

using office::Item;
using office::Kind;

QColor qt_colour(std::uint32_t colour) { return QColor(QRgb(colour)); }

void set_ground(QWidget &widget, std::uint32_t colour) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, qt_colour(colour));
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

QPixmap pixmap_of(Kind kind) {
    const auto pixels = office::picture(kind == Kind::translucent_picture);
    const QImage image(reinterpret_cast<const uchar *>(pixels.data()), office::picture_size,
                       office::picture_size, QImage::Format_ARGB32);
    return QPixmap::fromImage(image);
}

// Makes the application look and behave alike everywhere. The offscreen platform needs no display.
class Application {
public:
    Application() {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        application_.emplace(count_, arguments_);
        QApplication::setStyle("windows");
        QFont font(office::font_name);
        font.setPixelSize(office::font_size);
        QApplication::setFont(font);
        QApplication::setCursorFlashTime(0);
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Window, qt_colour(office::colour::face));
        QApplication::setPalette(palette);
    }

private:
    int count_ = 1;
    char name_[8] = "bench";
    char *arguments_[2] = {name_, nullptr};
    std::optional<QApplication> application_;
};

class Form {
public:
    enum class Area { forty_lines, long_text };

    explicit Form(Area kind) : area_kind_(kind) {
        top.setFixedSize(office::width, office::height);
        set_ground(top, office::colour::desk);
        for (const Item &item : office::items()) add(item);
        top.show();
        QApplication::processEvents();
    }

    QWidget top;
    QPlainTextEdit *text_area = nullptr;

private:
    // An item of a window is placed within it, unless it is the window itself.
    void add(const Item &item) {
        const bool on_top = item.window < 0 || item.kind == Kind::window;
        QWidget *const widget = widget_for(item, on_top ? &top : window_);
        const QPoint origin = on_top ? QPoint() : window_->pos();
        if (on_top) widget->setPalette(QApplication::palette()); // not the desk's
        widget->setGeometry(
            QRect({item.x, item.y}, QSize(item.width, item.height)).translated(-origin));
        if (item.kind == Kind::window) window_ = widget;
    }

    QWidget *widget_for(const Item &item, QWidget *parent) {
        const QString text = QString::fromStdString(item.text);
        switch (item.kind) {
        case Kind::window:
            return framed(new QFrame(parent), QFrame::Raised, 3);
        case Kind::label:
            return framed(new QLabel(text, parent), QFrame::Raised, 2);
        case Kind::picture:
        case Kind::translucent_picture:
            return picture(item, parent);
        case Kind::title:
            return title(text, parent);
        case Kind::entry:
            return new QLineEdit(text, parent);
        case Kind::text_area:
            return add_text_area(parent);
        case Kind::frame_button:
            return new QPushButton("=", parent);
        case Kind::button:
            break;
        }
        return new QPushButton(text, parent);
    }

    static QWidget *framed(QFrame *frame, QFrame::Shadow shadow, int line_width) {
        frame->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(shadow));
        frame->setLineWidth(line_width);
        frame->setAutoFillBackground(true);
        return frame;
    }

    static QWidget *picture(const Item &item, QWidget *parent) {
        auto *const label = new QLabel(parent);
        label->setPixmap(pixmap_of(item.kind));
        framed(label, QFrame::Sunken, 2)->setAutoFillBackground(false);
        return label;
    }

    static QWidget *title(const QString &text, QWidget *parent) {
        auto *const label = new QLabel(text, parent);
        label->setIndent(22);
        set_ground(*label, office::colour::title);
        return label;
    }

    QWidget *add_text_area(QWidget *parent) {
        const bool is_long = area_kind_ == Area::long_text;
        const std::string text = is_long ? office::long_text_with_room() : office::area_text();
        text_area = new QPlainTextEdit(parent);
        text_area->setPlainText(QString::fromStdString(text));
        text_area->setLineWrapMode(is_long ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
        text_area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        text_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        return text_area;
    }

    const Area area_kind_;
    QWidget *window_ = nullptr;
};

void place_caret(Form &form) {
    form.text_area->setFocus();
    form.top.activateWindow();
    QApplication::processEvents();
    QTextCursor caret = form.text_area->textCursor();
    caret.setPosition(office::caret_index);
    form.text_area->setTextCursor(caret);
}

void strike(Form &form, int key, const QString &text) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(form.text_area, &event);
    QApplication::sendPostedEvents(nullptr, 0);
    QApplication::processEvents();
}

void redraw() {
    const Application application;
    Form form(Form::Area::forty_lines);
    QImage image(office::width, office::height, QImage::Format_RGB32);
    measure::say_time("redraw", [&form, &image] { form.top.render(&image); });
}

void key() {
    const Application application;
    Form form(Form::Area::long_text);
    place_caret(form);
    bool letter_is_next = true;
    measure::say_time("key", [&form, &letter_is_next] {
        if (letter_is_next)
            strike(form, Qt::Key_X, "x");
        else
            strike(form, Qt::Key_Backspace, "");
        letter_is_next = !letter_is_next;
    });
    measure::demand(form.text_area->toPlainText().toStdString() == office::long_text_with_room(),
                    "the keys changed the text");
}

} // namespace

int main(int argc, char **argv) {
    return measure::run(argc, argv, {{"redraw", redraw}, {"key", key}});
}
