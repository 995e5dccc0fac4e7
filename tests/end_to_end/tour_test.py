"""The tour, used with a real pointer and keyboard."""

import os
import subprocess
import sys
import tempfile

from session import Form, Session, arguments, frame_button

LOOK = ["--font-size", "13", "--background", "#e3e9f0"]
DESK = (0, 30, 800, 570)  # all but the bar with the clock


class Tour:
    """The windows of the tour, and what is done with them."""

    def __init__(self, session, form, velform, folder):
        self.session, self._velform, self._folder = session, velform, folder
        self._form, self.centre = form, form.centre
        self.windows = {name: list(form.rect(name)) for name in ("order", "photos", "log")}

    def click(self, name, window=None):
        """Clicks on the middle of an object, seen from where its window stands now."""
        x, y = self._form.centre(name)
        if window is not None:
            x += self.windows[window][0] - self._form.rect(window)[0]
            y += self.windows[window][1] - self._form.rect(window)[1]
        self.session.click(x, y)

    def frame(self, window, button):
        self.session.click(*frame_button(self.windows[window], button))

    def move(self, window, x, y):
        self.frame(window, "move")
        self.session.click(x, y)
        self.windows[window][:2] = [x, y]
        self.session.expect(f"moved: {window} {x} {y}")

    def choose(self, title, entry):
        """Pulls a menu down and lets go on an entry."""
        self.session.press(*self._form.centre(title))
        self.session.release(*self._form.centre(entry))
        self.session.expect(f"clicked: {entry}")

    def expect_screen(self, *open_windows):
        """The screen is as the form tool draws the form as it was compiled."""
        picture = os.path.join(self._folder, "expected.png")
        activate = [word for name in open_windows for word in ("--activate", name)]
        subprocess.run(
            [self._velform, "render", "tour.form", "tour.text", "-o", picture, *LOOK, *activate],
            check=True, stderr=subprocess.DEVNULL, env=dict(os.environ, SDL_VIDEODRIVER="dummy"),
            timeout=60)  # fmt: skip
        self.session.expect_picture(picture, DESK)


def see_windows(tour):
    session = tour.session
    session.step("The tour shows its desk and three windows.")
    session.expect("active: order", "cursor: name", "name: Jürgen Groß")
    tour.expect_screen("log", "photos", "order")

    session.step("A click into the middle of a window behind brings it to the front.")
    session.click(180, 250)
    session.expect("active: photos")
    tour.expect_screen("log", "order", "photos")
    session.click(700, 500)
    session.expect("active: log")
    session.click(450, 400)
    session.expect("active: order")
    tour.expect_screen("photos", "log", "order")


def type_an_order(tour):
    session = tour.session
    session.step("The order is emptied.")
    tour.click("clear")
    session.expect("clicked: clear", "name: ", "street: ", "amount: ", "remark: ")

    session.step("A name, a street and an amount are typed; Tab goes from field to field.")
    tour.click("name")
    session.type("Käthe Öß")
    session.expect("name: Käthe Öß")
    session.key("Tab")
    session.expect("cursor: street")
    session.key("Num_Lock")  # which the tour keeps from switching Shift off
    session.type("Ährenweg 7 (\"Üb. Hof\") & =?!")
    session.expect('street: Ährenweg 7 ("Üb. Hof") & =?!')
    session.key("Num_Lock")
    session.key("Tab")
    session.type("12x5")
    session.expect("amount: 125")
    session.key("Tab", "shift+Tab")
    session.key("Left", "BackSpace")
    session.expect("amount: 15")

    session.step("Notes are typed, broken into lines and mended.")
    tour.click("remark")
    session.expect("cursor: remark")
    session.type("Zwei Kisten")
    session.key("Return")
    session.type("Äpfel; sonst nichts.")
    session.expect("remark: Zwei Kisten\\nÄpfel; sonst nichts.")
    session.key(*["Left"] * 20, "BackSpace")
    session.expect("remark: Zwei KistenÄpfel; sonst nichts.")
    session.key("Return", *["Delete"] * 7)
    session.expect("remark: Zwei Kisten\\nsonst nichts.")


def answer_dialogs(tour):
    session = tour.session
    session.step("The order is to be saved, and a dialog asks.")
    tour.click("save")
    session.expect("clicked: save", "active: question")
    session.step("The answer is no.")
    tour.click("no")
    session.expect("answer: no", "active: order")

    session.step("A menu is pulled down.")
    session.press(*tour.centre("file_title"))
    session.move(*tour.centre("file_save"))
    session.step("Its entry asks again; the answer is yes, and a notice says that it is done.")
    session.release(*tour.centre("file_save"))
    session.expect("clicked: file_save", "active: question")
    tour.click("yes")
    session.expect("answer: yes", "active: notice")
    session.step("The notice is acknowledged.")
    tour.click("understood")
    session.expect("saved", "active: order")

    session.step("The sample is loaded; the form is as it was at first.")
    tour.choose("edit_title", "edit_load")
    session.expect("name: Jürgen Groß", "amount: 24")
    tour.expect_screen("photos", "log", "order")


def handle_the_frame(tour):
    session = tour.session
    session.step("The window is moved to where the next click falls, and back.")
    tour.move("order", 40, 250)
    tour.click("remark", "order")
    session.expect("cursor: remark")
    tour.click("name", "order")
    session.expect("cursor: name")
    tour.move("order", 272, 200)
    tour.expect_screen("photos", "log", "order")

    session.step("The pictures' window is made larger and smaller.")
    tour.choose("view_title", "view_photos")
    session.expect("active: photos")
    x, y, width, height = tour.windows["photos"]
    tour.frame("photos", "width_more")
    session.expect(f"sized: photos {width + 4} {height}")
    tour.windows["photos"][2] += 4
    tour.frame("photos", "width_less")
    session.expect(f"sized: photos {width} {height}")
    tour.windows["photos"][2] -= 4
    session.press(*frame_button(tour.windows["photos"], "height_more"))
    session.expect(f"sized: photos {width} {height + 12}")
    session.release(x + width // 2, y + 10)
    session.step("In scroll mode the same buttons scroll its contents.")
    tour.frame("photos", "mode")
    session.expect("mode: scroll")
    tour.frame("photos", "width_less")
    session.expect("scrolled: photos 10 0")
    tour.frame("photos", "height_less")
    session.expect("scrolled: photos 10 10")
    tour.frame("photos", "mode")
    session.expect("mode: resize")


def close_everything(tour):
    session = tour.session
    session.step("Every window is closed by its frame button.")
    tour.frame("photos", "close")
    session.expect("active: order")
    tour.frame("order", "close")
    session.expect("active: log")
    tour.frame("log", "close")
    session.expect("active: none")
    tour.expect_screen()

    session.step("A picture on the desk opens a window again; the menu ends the tour.")
    tour.click("order_icon")
    session.expect("clicked: order_icon", "active: order")
    tour.choose("file_title", "file_quit")
    session.expect("end")
    session.expect_end()


def main():
    options = arguments(__doc__)
    program = os.path.abspath(options.program)
    folder, name = os.path.split(program)
    command = [*options.under.split(), program]
    velform = os.path.abspath(options.velform)
    pictures = options.pictures and os.path.abspath(options.pictures)
    os.chdir(folder)
    with tempfile.TemporaryDirectory() as scratch, Session(command, folder, pictures) as session:
        tour = Tour(session, Form(folder, name), velform, scratch)
        for part in (see_windows, type_an_order, answer_dialogs, handle_the_frame,
                     close_everything):  # fmt: skip
            part(tour)
    return 0


sys.exit(main())
