"""Each part, used with the pointer and then with the keyboard alone."""

from session import Session, arguments


class Parts(Session):
    def says(self, **wanted):
        """Waits for the parts to say so; what is not named is as it was."""
        self.state.update(wanted)
        self.expect(" ".join(f"{name} {value}" for name, value in self.state.items()))

    def cover(self, place, action, back):
        """Does what changes a pixel, and then what changes it back."""
        bare = self.display.pixel(*place)
        action()
        self.wait(lambda: self.display.pixel(*place) != bare, f"{place} stays as it is")
        back()
        self.wait(lambda: self.display.pixel(*place) == bare, f"{place} is not as it was")

    def drag(self, start, end):
        self.point(*start, "mousedown")
        self.point(*end)
        self.point(*end, "mouseup")


def use_pointer(parts):
    parts.step("A check box, a radio button and the other one again.")
    parts.click("check")
    parts.says(check=1)
    for name, radio in (("right", "01"), ("left", "10")):
        parts.click(name)
        parts.says(radio=radio)

    parts.step("The tip of the check box shows below the pointer after a rest, and goes.")
    x, y = parts.centre("check")
    parts.cover((x + 110, y + 21), lambda: parts.point(x, y),
                lambda: parts.point(*parts.centre("slider")))  # fmt: skip

    parts.step("A choice opens; its second row is right below the first.")
    x, y, _, height = parts.rect("size")
    parts.cover((x + 100, y + height + 10), lambda: parts.click("size"),
                lambda: parts.click_at(x + 30, y + height + 3 + 22 + 11))  # fmt: skip
    parts.says(choice=1)

    parts.step("A slider is dragged to its end.")
    x, y, width, height = parts.rect("slider")
    parts.drag((x + 10, y + height // 2), (x + width + 50, y))
    parts.says(slider=10)

    parts.step("A row is selected and answered, the list is sorted and dragged to its end.")
    parts.point(*parts.row("list", 2), *["mousedown", "mouseup"] * 2)
    for row in ("2", "2!"):
        parts.says(list=row)
    x, y, width, height = parts.rect("list")
    parts.click_at(x + 60, y + 12, "sorted 0 0")
    parts.see_change(lambda: parts.click_at(x + 60, y + 12, "sorted 0 1"), "list")
    parts.drag((x + width - 8, y + 8), (x + width - 8, y + height + 9))
    parts.click_at(*parts.row("list", 0))
    parts.says(list=993)  # seven rows are in sight

    parts.step("A text is scrolled by its bar, a tab shows its page.")
    x, y, width, height = parts.rect("bar")
    parts.see_change(lambda: parts.drag((x + 7, y + 8), (x + 7, y + height)), "note")
    x, y, _, _ = parts.rect("tabs")
    parts.click_at(x + 100, y + 14)
    parts.says(page=1)
    parts.click("other")
    parts.says(other=1)


def use_keys(parts):
    parts.step("From the text on to the tabs, the page, and round to the check box.")
    parts.key("Tab Right")
    parts.says(page=1)
    parts.key("Tab space")
    parts.says(other=1)
    parts.key("Tab space")
    parts.says(check=1)
    parts.key("Tab Down")
    parts.says(radio="01")

    parts.step("The choice is changed closed and opened, and given up.")
    parts.key("Tab Down")
    parts.says(choice=1)
    parts.key("space Down Return")
    parts.says(choice=2)
    parts.key("space Up Up Escape")

    parts.step("The slider goes to its end, the list finds a row and answers.")
    parts.key("Tab End")
    parts.says(slider=10)
    parts.key("Tab Down")
    parts.says(list=0)
    parts.type("42")
    parts.says(list=42)
    parts.press_key("Return")
    parts.says(list="42!")


def main():
    options = arguments(__doc__)
    for use in (use_pointer, use_keys):
        with Parts(options.program, options.pictures) as parts:
            parts.state = dict(check=0, radio="10", choice=0, slider=0, list=-1, page=0, other=0)
            parts.expect("ready")
            use(parts)


main()
