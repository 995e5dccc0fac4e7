"""The tour, used with a real pointer and keyboard."""

import os
import subprocess
import tempfile

from session import Session, arguments

LOOK = ["--font-size", "13", "--background", "#e3e9f0"]


class Tour(Session):
    def __init__(self, options):
        super().__init__(options.program, options.pictures)
        self._velform = options.velform
        self.moved = {}  # rectangles of windows that are not as compiled

    def rect(self, name):
        return self.moved.get(name) or super().rect(name)

    def frame(self, window, button, *wanted):
        self.click_at(*self.frame_button(window, button), *wanted)

    def move(self, window, x, y):
        self.frame(window, "move")
        self.click_at(x, y)
        self.moved[window] = (x, y, *self.rect(window)[2:])
        self.expect(f"moved: {window} {x} {y}")

    def expect_screen(self, *open_windows):
        """The screen is as the form tool draws the form as it was compiled."""
        activate = [word for name in open_windows for word in ("--activate", name)]
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "expected.png")
            subprocess.run(
                [self._velform, "render", "tour.form", "tour.text", "-o", path, *LOOK, *activate],
                check=True, cwd=self.folder, env=dict(os.environ, SDL_VIDEODRIVER="dummy"),
                stderr=subprocess.DEVNULL)  # fmt: skip
            self.expect_picture(path)


def see_windows(tour):
    tour.step("The tour shows its desk and three windows.")
    tour.expect("active: order", "cursor: name", "name: Jürgen Groß")
    tour.expect_title("Velumo Tour")
    tour.expect_screen("log", "photos", "order")

    tour.step("A click into the middle of a window in the back brings it to the front.")
    tour.click_at(180, 250, "active: photos")
    tour.expect_screen("log", "order", "photos")
    tour.click_at(700, 500, "active: log")
    tour.click_at(450, 400, "active: order")
    tour.expect_screen("photos", "log", "order")


def type_an_order(tour):
    tour.step("The order is emptied.")
    tour.click("clear", "clicked: clear", "name: ", "street: ", "amount: ", "remark: ")

    tour.step("A name, a street and an amount are typed; Tab goes from field to field.")
    tour.click("name")
    tour.type("Käthe Öß", "name: Käthe Öß")
    tour.key("Tab", "cursor: street")
    tour.press_key("Num_Lock")  # which is no reason for Shift to do nothing
    tour.type('Ährenweg 7 ("Üb. Hof") & =?!', 'street: Ährenweg 7 ("Üb. Hof") & =?!')
    tour.press_key("Num_Lock")
    tour.key("Tab 1 2")
    tour.press_key("x")
    tour.key("5", "amount: 125")
    tour.key("Tab shift+Tab Left BackSpace", "amount: 15")

    tour.step("Remarks are typed, broken into lines and corrected.")
    tour.click("remark", "cursor: remark")
    tour.type("For Märta\nÄnne; nobody else.", "remark: For Märta\\nÄnne; nobody else.")
    tour.key("Left " * 18 + "BackSpace", "remark: For MärtaÄnne; nobody else.")
    tour.key("Return" + " Delete" * 6, "remark: For Märta\\nnobody else.")


def answer_dialogs(tour):
    tour.step("The order is to be saved, and a dialog asks.")
    tour.click("save", "clicked: save", "active: question")
    tour.step("The answer is no.")
    tour.click("no", "answer: no", "active: order")

    tour.step("A menu is pulled down.")
    tour.point(*tour.centre("file_title"), "mousedown")
    tour.point(*tour.centre("file_save"))
    tour.step("Its entry asks again; the answer is yes, and a notice says that it is done.")
    tour.point(*tour.centre("file_save"), "mouseup")
    tour.expect("clicked: file_save", "active: question")
    tour.click("yes", "answer: yes", "active: notice")
    tour.step("The notice is closed.")
    tour.click("understood", "saved", "active: order")

    tour.step("The sample is loaded; the form is as it was at first.")
    tour.choose("edit_title", "edit_load", "clicked: edit_load", "name: Jürgen Groß", "amount: 24")
    # The dialogs have given the focus back to the remarks.
    tour.click("name", "cursor: name")
    tour.press_key("Home")
    tour.expect_screen("photos", "log", "order")


def handle_the_frame(tour):
    tour.step("The window is moved to where the next click falls, and back.")
    x, y, _, _ = tour.rect("order")
    tour.move("order", x - 232, y + 50)
    for field in ("remark", "name"):
        field_x, field_y = tour.centre(field)
        tour.click_at(field_x - 232, field_y + 50, f"cursor: {field}")
    tour.key("Home")  # the click has put the caret after the name
    tour.move("order", x, y)
    tour.expect_screen("photos", "log", "order")

    tour.step("The window of photos is made larger and smaller.")
    tour.choose("view_title", "view_photos", "clicked: view_photos", "active: photos")
    x, y, width, height = tour.rect("photos")
    tour.frame("photos", "width_more", f"sized: photos {width + 4} {height}")
    tour.moved["photos"] = (x, y, width + 4, height)
    tour.frame("photos", "width_less", f"sized: photos {width} {height}")
    tour.moved.clear()
    tour.point(*tour.frame_button("photos", "height_more"), "mousedown")
    tour.expect(f"sized: photos {width} {height + 12}")
    tour.point(x + width // 2, y + 10, "mouseup")

    tour.step("In scroll mode the same buttons scroll its contents.")
    tour.frame("photos", "mode", "mode: scroll")
    tour.frame("photos", "width_less", "scrolled: photos 10 0")
    tour.frame("photos", "height_less", "scrolled: photos 10 10")
    tour.frame("photos", "mode", "mode: resize")


def close_everything(tour):
    tour.step("Every window is closed by its frame button.")
    for window, next_one in (("photos", "order"), ("order", "log"), ("log", "none")):
        tour.frame(window, "close", f"active: {next_one}")
    tour.expect_screen()

    tour.step("A picture on the desk opens a window again; the menu ends the tour.")
    tour.click("order_icon", "clicked: order_icon", "active: order")
    tour.choose("file_title", "file_quit", "clicked: file_quit", "end")
    tour.expect_end()


def main():
    with Tour(arguments(__doc__)) as tour:
        see_windows(tour)
        type_an_order(tour)
        answer_dialogs(tour)
        handle_the_frame(tour)
        close_everything(tour)


main()
