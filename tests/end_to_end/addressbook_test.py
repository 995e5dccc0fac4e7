"""The address book, used with a real pointer and keyboard, and killed while it is used."""

import csv
import os
import sqlite3
import tempfile

from session import Session, arguments

JUERGEN = {
    "name": "Groß, Jürgen", "street": "Ölmühlweg 12", "post_code": "01067", "town": "Döbeln",
    "telephone": "0351 4711", "email": "gross@example.org", "notes": 'Plays "Händel",\nno Bach.',
}  # fmt: skip
MOVED = dict(JUERGEN, town="Würzburg")
KAETHE = {"name": "Öß, Käthe", "town": "Köln"}
COLUMNS = ["name", "street", "post_code", "town", "telephone", "email", "notes", "picture"]
CAPTIONS = ["Name", "Street", "Postcode", "Town", "Telephone", "Email", "Notes", "Picture"]
WAITED_FOR = 10  # changes before the program is rushed


class Book(Session):
    def __init__(self, options, home):
        super().__init__(options.program, options.pictures)
        self._file = os.path.join(home, "data", "velumo-addressbook", "contacts.db")

    def fill(self, fields):
        for name, text in fields.items():
            self.click(name)
            self.type(text)

    def contacts(self):
        """All that is on disk: a dict of the filled fields for each name."""
        with sqlite3.connect(self._file) as file:
            rows = file.execute(f"SELECT {', '.join(COLUMNS)} FROM contact").fetchall()
        return {row[0]: {k: v for k, v in zip(COLUMNS, row) if v != ""} for row in rows}

    def expect_saved(self, line, *contacts):
        """Waits for a line; these contacts are on disk then."""
        self.expect(line)
        if self.contacts() != {contact["name"]: contact for contact in contacts}:
            raise AssertionError(f"the file holds {self.contacts()}")


def keep_contacts(book):
    book.step("The book is open and empty.")
    book.expect("found 0 ")
    book.expect_title("Address Book")

    book.step("A first contact is typed and saved.")
    book.click("new")
    book.fill(JUERGEN)
    book.click("save")
    book.expect_saved("saved 1 Groß, Jürgen", JUERGEN)

    book.step("A second one follows.")
    book.click("new")
    book.fill(KAETHE)
    book.choose("contact_title", "menu_save")
    book.expect_saved("saved 2 Öß, Käthe", JUERGEN, KAETHE)

    book.step("The first one moves to another town.")
    book.click_at(*book.row("people", 0))
    book.click("town")
    book.key("ctrl+a")
    book.type("Würzburg")
    book.click("save")
    book.expect_saved("saved 1 Groß, Jürgen", MOVED, KAETHE)


def delete_and_bring_back(book):
    book.step("A contact is to be deleted, and the program asks.")
    book.click("delete")
    book.step("The answer is no, and the contact stays.")
    book.click("no")
    book.step("It is deleted.")
    book.click("delete")
    book.click("yes")
    book.expect_saved("deleted 1 Groß, Jürgen", KAETHE)

    book.step("It is brought back as it was.")
    book.choose("contact_title", "undo")
    book.expect_saved("restored 1 Groß, Jürgen", MOVED, KAETHE)


def search(book):
    book.step("The list follows what is typed into the search field.")
    book.click("search")
    for words in ("k", "ka", "kae"):
        book.type(words[-1], f"found 1 {words}")
    book.key("BackSpace " * 3, "found 2 ")


def exchange(book, folder):
    path = os.path.join(folder, "addressbook.csv")
    book.step("The contacts are to be exported, and the program asks where to.")
    book.choose("file_title", "export")
    book.step("They are written to a file of comma-separated values.")
    book.click("open_ok", f"exported 0 {path}")
    with open(path, encoding="utf-8", newline="") as file:
        rows = list(csv.reader(file))
    if rows != [CAPTIONS] + [[c.get(k, "") for k in COLUMNS] for c in (MOVED, KAETHE)]:
        raise AssertionError(f"the exported file holds {rows}")

    book.step("A file with a bad line is refused and changes nothing.")
    with open(os.path.join(folder, "aa.csv"), "w", encoding="utf-8") as file:
        file.write(",".join(CAPTIONS) + "\nGood,,,,,,,\nBad,,D-1,,,,,\n")
    book.choose("file_title", "import")
    book.type("aa.csv\n")
    book.expect_saved("notice 0 Line 3: The postcode must be at most 10 digits.", MOVED, KAETHE)
    book.step("The message is closed, and the work goes on.")
    book.click("notice_ok")


def end_and_return(book):
    book.step("The help flows through two columns.")
    book.choose("help_title", "help")
    book.step("A click has closed it; the about window is open.")
    book.click("help_page")
    book.choose("help_title", "about")
    book.step("The program ends and starts again with what it had.")
    book.click("about_ok")
    book.choose("file_title", "quit")
    book.expect_end()
    book.start()
    book.expect("found 2 ")


def kill_while_saving(book):
    book.step("One change after another is saved, and the program is killed meanwhile.")
    book.click_at(*book.row("people", 0))
    before = len(book.lines)
    for number in range(WAITED_FOR + 3):
        book.click("telephone")
        book.type("0")
        book.click("save", *["saved 1 Groß, Jürgen"] * (number < WAITED_FOR))
    book.kill()
    saved = book.lines[before:].count("saved 1 Groß, Jürgen")
    typed = len(book.contacts()[JUERGEN["name"]]["telephone"]) - len(JUERGEN["telephone"])
    if not WAITED_FOR <= saved <= typed <= WAITED_FOR + 3:
        raise AssertionError(f"{saved} changes were confirmed, {typed} are on disk")


def main():
    options = arguments(__doc__)
    with tempfile.TemporaryDirectory() as home:
        os.environ.update(HOME=home, XDG_DATA_HOME=os.path.join(home, "data"))
        with Book(options, home) as book:
            keep_contacts(book)
            delete_and_bring_back(book)
            search(book)
            exchange(book, home)
            end_and_return(book)
            kill_while_saving(book)


main()
