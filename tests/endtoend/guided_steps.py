"""Takes the numbered steps of a chapter of the guide in the windows, word by word, as a screen reader's user would: what stands in
bold letters is pressed, what stands in quotes must be there to be read, what stands as code is chosen, marked or looked for. A
caption, a file or a line that the guide names and the program does not have ends the walk.
"""

import itertools
import re
import subprocess

import screen_reader

STEPS = re.compile(r"^\d+\. (.*?)(?=^\d+\. |^$)", re.DOTALL | re.MULTILINE)
LINK = re.compile(r"\[([^\]]*)\]\([^)]*\)")
WORDS = re.compile(r'\*\*(?P<press>.+?)\*\*|"(?P<quote>.+?)"|`(?P<code>.+?)`')
INNER_BLANKS = re.compile(r"\s+")


class NotFollowed(Exception):
    pass


def steps_of(chapter, heading):
    """The steps below this heading, each as one line."""
    part = chapter[chapter.index(f"## {heading}\n"):]
    part = part[:part.find("\n## ", 4)]
    return [" ".join(LINK.sub(r"\1", step).split()) for step in STEPS.findall(part)]


def plain(caption):
    return INNER_BLANKS.sub(" ", caption.replace("&", "")).strip()


class Walk:
    """One program on one screen. `seen` is told of each thing that was done."""

    def __init__(self, reader, folder, seen=print):
        self.reader, self.folder, self.seen = reader, folder, seen
        self.quoted = ""
        self.scale = 1  # pixels of the screen in one that the bus tells of

    def follow(self, step):
        self.seen(step)
        at = 0
        for word in WORDS.finditer(step):
            before = step[at:word.start()]
            at = word.end()
            if word["press"]:
                self.press(word["press"], step[at:])
            elif word["quote"]:
                self.read(word["quote"])
            else:
                self.take(word["code"], before)

    # Looking

    def showing(self):
        return (thing for thing in self.reader.all_of(self.in_front()) if self.reader.is_(thing, "SHOWING"))

    def texts(self, thing):
        yield plain(thing.get_name())
        yield plain(thing.get_description())
        if thing.get_role() in (self.reader.role.LIST, self.reader.role.TEXT):
            for index in range(min(thing.get_child_count(), 100)):
                yield plain(thing.get_child_at_index(index).get_name())
            text = thing.get_text_iface()
            if text is not None:
                yield plain(text.get_text(0, -1))

    def await_(self, condition, what):
        try:
            return self.reader.wait(condition, what)
        except AssertionError as failure:
            raise NotFollowed(str(failure)) from None

    def read(self, words):
        def is_there():
            return any(words in text for thing in self.showing() for text in self.texts(thing))
        self.await_(is_there, f'the words "{words}"')
        self.quoted = words

    # Doing

    def in_front(self):
        """The window that keys go to; waited for, as one comes after another. After a dialog the bus is not always told which
        that is: the window manager knows."""
        def found():
            frames = self.reader.frames(None)
            active = [frame for frame in frames if self.reader.is_(frame, "ACTIVE")]
            if active:
                return active[0]
            title = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True, check=False).stdout
            return next((frame for frame in reversed(frames) if frame.get_name() == title.rstrip("\n")), None)
        return self.await_(found, "a window in front")

    def named(self, caption):
        """What can be pressed in the window in front and is called so, shortened by nothing but blanks and what follows."""
        roles = self.reader.role
        places = [place for place in (self.reader.open_menu(), self.in_front()) if place is not None]
        for thing in itertools.chain.from_iterable(self.reader.all_of(place) for place in places):
            ways = (roles.PUSH_BUTTON, roles.MENU_ITEM, roles.CHECK_BOX, roles.RADIO_BUTTON, roles.PUSH_BUTTON_MENU)
            if thing.get_role() in ways and self.reader.is_(thing, "SENSITIVE") and self.reader.is_(thing, "SHOWING"):
                name = plain(thing.get_name())
                if name == caption or (thing.get_role() == roles.MENU_ITEM and name.startswith(caption)):
                    yield thing

    def press(self, caption, after=""):
        in_menu_bar = after.startswith(" in the menu bar")

        def found():
            things = [t for t in self.named(caption) if not in_menu_bar or t.get_role() == self.reader.role.MENU_ITEM]
            return min(things, key=lambda t: t.get_role() == self.reader.role.MENU_ITEM, default=None)
        self.click(self.await_(found, f"something to press with the caption {caption}"))

    def take(self, words, before):
        if before.endswith(("shows ", "folder ", "folder\n")):
            return self.read(words)
        if before.endswith("writes "):
            return self.await_(lambda: (self.folder / words).is_file(), f"the file {words}")
        if before.endswith((": ", " is ")) and (self.folder / words).is_file():
            return None  # told of, not used
        if before.endswith("mark "):
            return self.mark(words, with_ctrl="hold Ctrl" in before)
        if before.endswith(("pick ", "say ")) or before.endswith("choose ") and self.is_file_dialog():
            return self.type_file(words)
        if before.endswith("choose "):
            return self.choose(words)
        raise NotFollowed(f"nobody can tell what to do with {words}")

    def is_file_dialog(self):
        return any(plain(thing.get_name()) == "File name:" for thing in self.reader.all_of(self.in_front()))

    def type_file(self, name):
        self.await_(self.is_file_dialog, "a dialog for files")
        subprocess.run(["xdotool", "type", "--delay", "20", name], check=True)
        screen_reader.keys("Return")

    def choose(self, words):
        """In the box of choices that has the label read last."""
        def found():
            return next((thing for thing in self.reader.all_of(self.in_front())
                         if thing.get_role() == self.reader.role.COMBO_BOX and self.reader.label_of(thing) == self.quoted), None)
        box = self.await_(found, f"choices called {self.quoted}")
        lines = [plain(line.get_name()) for line in self.reader.lines_of(box)]
        if words not in lines:
            raise NotFollowed(f"{self.quoted} has no {words}, but {lines}")
        self.click(box) # opens the choices
        screen_reader.keys("Home", *["Down"] * lines.index(words), "Return")
        self.await_(lambda: plain(box.get_name()) == words, f"the choice {words}")

    def mark(self, words, with_ctrl):
        def found():
            for thing in self.reader.all_of(self.in_front()):
                if thing.get_role() == self.reader.role.LIST and self.reader.is_(thing, "SHOWING"):
                    for line in self.reader.lines_of(thing):
                        if plain(line.get_name()) == words:
                            return line
            return None
        line = self.await_(found, f"a line {words}")
        self.click(line, "ctrl" if with_ctrl else None)
        self.await_(lambda: self.reader.is_(line, "SELECTED"), f"the mark on {words}")

    def click(self, thing, held=None):
        place = self.reader.place(thing)
        middle = (place.x + place.width // 2, place.y + place.height // 2)
        click = ["mousemove", *(str(self.scale * number) for number in middle), "click", "1"]
        subprocess.run(["xdotool", *(["keydown", held] if held else []), *click, *(["keyup", held] if held else [])], check=True)
