"""Both examples, used with the keyboard alone: the pointer is never moved."""

import os
import tempfile

from session import Session, arguments


def use_tour(tour):
    tour.step("An order is typed; Alt and a letter press the buttons.")
    tour.expect("active: order", "cursor: name", "name: Jürgen Groß")
    tour.key("alt+c", "clicked: clear", "name: ")
    tour.type("Ada", "name: Ada")
    tour.key("Tab", "cursor: street")
    tour.key("Tab 3", "amount: 3")

    tour.step("Enter saves it from any field; Escape is the dialog's no, Enter its yes.")
    tour.key("Return", "clicked: save", "active: question")
    tour.key("Escape", "answer: no", "active: order")
    tour.key("alt+s Tab Tab Return", "clicked: save", "answer: yes", "active: notice")
    tour.key("space", "saved", "active: order")

    tour.step("Menus are opened and walked.")
    tour.key("F10 Right Return", "clicked: edit_load", "name: Jürgen Groß")
    tour.key("alt+v Up Return", "clicked: view_log", "active: log")
    tour.key("ctrl+Tab", "active: photos")

    tour.step("The frame buttons move, scroll and close the window.")
    x, y, _, _ = tour.rect("photos")
    tour.key("alt+space")
    tour.press_key("Return")
    tour.key("Left Down Down shift+Right", f"moved: photos {x - 7} {y + 16}")
    tour.press_key("Return")
    tour.key("Right Right Right space", "mode: scroll")
    tour.key("Right Return", "scrolled: photos 10 0")
    tour.key("Right Right Return", "active: log")
    tour.key("Escape", "active: order")
    tour.key("Escape", "active: none")

    tour.step("A picture on the desk opens a window again; the menu ends the tour.")
    tour.key("alt+o", "clicked: order_icon", "active: order")
    tour.key("alt+f End")
    tour.press_key("Return")
    tour.expect("clicked: file_quit", "end")


def use_addressbook(book, folder):
    book.step("A contact is typed and saved.")
    book.expect("found 0 ")
    book.key("alt+n")
    book.type("Groß, Ada")
    book.key("Tab")
    book.type("Lindenweg 3")
    book.key("alt+s", "saved 1 Groß, Ada")

    book.step("It is found, chosen in the list and deleted; it comes back and is exported.")
    book.key("alt+e")
    book.type("g", "found 1 g")
    book.key("Tab Down")
    book.key("alt+d Escape alt+d Return", "deleted 1 Groß, Ada")
    book.key("F10 Right Up Return", "restored 1 Groß, Ada")
    book.key("alt+f Down Return Return", f"exported 0 {folder}/addressbook.csv")

    book.step("The guide closes with any key; the menu ends the program.")
    book.key("alt+h Return")
    book.press_key("Escape")  # the guide may come and go between two looks at the screen
    book.key("alt+f End")
    book.press_key("Return")


def main():
    options = arguments(__doc__)
    with tempfile.TemporaryDirectory() as home:
        os.environ.update(HOME=home, XDG_DATA_HOME=os.path.join(home, "data"))
        with Session(options.program, options.pictures) as session:
            if os.path.basename(options.program) == "tour":
                use_tour(session)
            else:
                use_addressbook(session, home)
            session.expect_end()


main()
