"""The address book, used with a real pointer and keyboard, and killed while it is used."""

import csv
import os
import sqlite3
import sys
import tempfile

from session import Failure, Form, Session, arguments

JUERGEN = {
    "name": "Groß, Jürgen", "street": "Ölmühlweg 12", "post_code": "01067", "town": "Döbeln",
    "telephone": "0351 4711", "email": "gross@example.org", "notes": "Mag Äpfel; sonst nichts.",
}  # fmt: skip
KAETHE = {"name": "Öß, Käthe", "town": "Köln"}
COLUMNS = ["name", "street", "post_code", "town", "telephone", "email", "notes", "picture"]
CAPTIONS = ["Name", "Straße", "PLZ", "Ort", "Telefon", "E-Mail", "Notiz", "Bild"]
WAITED_FOR = 10  # changes before the program is rushed


class Book:
    """The window of the program, and what its file holds."""

    def __init__(self, session, form, path):
        self.session, self._form, self._path = session, form, path

    def click(self, name):
        self.session.click(*self._form.centre(name))

    def click_row(self, number):
        """Clicks on a row of the list; all are as high as the first, which is number 0."""
        x, y = self._form.centre("row")
        self.session.click(x, y + number * self._form.rect("row")[3])

    def choose(self, title, entry):
        self.session.press(*self._form.centre(title))
        self.session.release(*self._form.centre(entry))

    def type(self, fields):
        for name, text in fields.items():
            self.click(name)
            self.session.type(text)

    def contacts(self):
        """All that is on disk: a dict of the filled fields for each name."""
        with sqlite3.connect(f"file:{self._path}?mode=ro", uri=True) as file:
            rows = file.execute(f"SELECT {', '.join(COLUMNS)} FROM contact").fetchall()
        return {row[0]: {k: v for k, v in zip(COLUMNS, row) if v != ""} for row in rows}

    def expect_contacts(self, *wanted):
        if self.contacts() != {contact["name"]: contact for contact in wanted}:
            raise Failure(f"the file holds {self.contacts()}")


def keep_contacts(book):
    session = book.session
    session.step("The book is open and empty.")
    session.expect("gefunden 0 ")

    session.step("A first contact is typed and saved.")
    book.click("new")
    book.type(JUERGEN)
    book.click("save")
    session.expect("gespeichert 1 Groß, Jürgen")
    book.expect_contacts(JUERGEN)

    session.step("A second one follows.")
    book.click("new")
    book.type(KAETHE)
    book.choose("contact_title", "menu_save")
    session.expect("gespeichert 2 Öß, Käthe")
    book.expect_contacts(JUERGEN, KAETHE)

    session.step("The first one moves to another town.")
    book.click_row(0)
    book.click("town")
    session.key(*["Delete"] * len(JUERGEN["town"]))
    session.type("Würzburg")
    book.click("save")
    session.expect("gespeichert 1 Groß, Jürgen")
    book.expect_contacts(dict(JUERGEN, town="Würzburg"), KAETHE)


def delete_and_bring_back(book):
    session = book.session
    moved = dict(JUERGEN, town="Würzburg")
    session.step("A contact is to be deleted, and the program asks.")
    book.click("delete")
    session.step("The answer is no, and the contact stays.")
    book.click("no")
    session.step("It is deleted.")
    book.click("delete")
    book.click("yes")
    session.expect("gelöscht 1 Groß, Jürgen")
    book.expect_contacts(KAETHE)

    session.step("It is brought back as it was.")
    book.choose("contact_title", "undo")
    session.expect("zurückgeholt 1 Groß, Jürgen")
    book.expect_contacts(moved, KAETHE)


def search(book):
    session = book.session
    session.step("The list follows what is typed into the search field.")
    book.click("search")
    session.type("kae")
    session.expect("gefunden 1 k", "gefunden 1 ka", "gefunden 1 kae")
    session.key(*["BackSpace"] * 3)
    session.expect("gefunden 2 ")


def exchange(book, folder):
    session = book.session
    path = os.path.join(folder, "adressbuch.csv")
    session.step("The contacts are to be exported, and the program asks where to.")
    book.choose("file_title", "export")
    session.step("They are written to a file of comma-separated values.")
    book.click("open_ok")
    session.expect(f"exportiert 0 {path}")
    with open(path, encoding="utf-8", newline="") as file:
        rows = list(csv.reader(file))
    moved = dict(JUERGEN, town="Würzburg")
    wanted = [CAPTIONS] + [[c.get(k, "") for k in COLUMNS] for c in (moved, KAETHE)]
    if rows != wanted:
        raise Failure(f"the exported file holds {rows}")

    session.step("A file with a bad line is refused and changes nothing.")
    with open(os.path.join(folder, "aa.csv"), "w", encoding="utf-8") as file:
        file.write(",".join(CAPTIONS) + "\nGut,,,,,,,\nSchlecht,,PLZ,,,,,\n")
    book.choose("file_title", "import")
    session.key("Delete", "Delete", "Delete", "Delete", "Delete")
    session.type("aa.csv")
    session.key("Return")
    session.expect("hinweis 0 Zeile 3: Die Postleitzahl besteht aus höchstens 10 Ziffern.")
    session.step("What is wrong with it was told, and the work goes on.")
    book.click("notice_ok")
    book.expect_contacts(moved, KAETHE)


def end_and_return(book):
    session = book.session
    session.step("The help flows through two columns.")
    book.choose("help_title", "help")
    session.step("A click has closed it; the about window is open.")
    book.click("help_page")
    book.choose("help_title", "about")
    session.step("The program ends and starts again with what it had.")
    book.click("about_ok")
    book.choose("file_title", "quit")
    session.expect_end()
    session.start()
    session.expect("gefunden 2 ")


def kill_while_saving(book):
    session = book.session
    session.step("Twenty changes are typed, and the program is killed in the midst of them.")
    book.click_row(1)
    for number in range(20):
        book.click("street")
        session.type("x")
        book.click("save")
        if number < WAITED_FOR:
            session.expect("gespeichert 2 Öß, Käthe")
        elif number == 12:
            session.kill()
            break
    saved = sum(line.startswith("gespeichert 2 ") for line in session.lines) - 1
    street = book.contacts()[KAETHE["name"]].get("street", "")
    if not WAITED_FOR <= saved <= len(street) <= 13:
        raise Failure(f"{saved} changes were confirmed, {len(street)} are on disk")


def main():
    options = arguments(__doc__)
    program = os.path.abspath(options.program)
    folder, name = os.path.split(program)
    pictures = options.pictures and os.path.abspath(options.pictures)
    with tempfile.TemporaryDirectory() as home:
        os.environ.update(HOME=home, XDG_DATA_HOME=os.path.join(home, "data"))
        path = os.path.join(home, "data", "velumo-addressbook", "contacts.db")
        command = [*options.under.split(), program]
        with Session(command, folder, pictures) as session:
            book = Book(session, Form(folder, name), path)
            keep_contacts(book)
            delete_and_bring_back(book)
            search(book)
            exchange(book, home)
            end_and_return(book)
            kill_while_saving(book)
    return 0


sys.exit(main())
