"""What a test needs to meet windows as a screen reader does: a screen with keys, and the accessibility bus.

A program or a package that is missing ends the test as skipped, with its reason.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import time
import warnings

SKIPPED = 77
SYSTEM_PYTHON = "/usr/bin/python3"
PATIENCE = 40  # seconds, on a busy machine


def skip(reason):
    print("skipped:", reason)
    sys.exit(SKIPPED)


def demand_tools():
    for program in ("Xvfb", "openbox", "xdotool", "dbus-daemon", "import", "xprop"):
        if shutil.which(program) is None:
            skip(f"there is no {program}")
    try:
        import gi
    except ImportError:
        if not os.path.exists(SYSTEM_PYTHON) or os.path.realpath(sys.executable) == os.path.realpath(SYSTEM_PYTHON):
            skip("there is no python3-gi")
        os.execv(SYSTEM_PYTHON, [SYSTEM_PYTHON, "-B", *sys.argv])
    try:
        gi.require_version("Atspi", "2.0")
    except ValueError:
        skip("there is no gir1.2-atspi-2.0")
    if not os.path.exists("/usr/libexec/at-spi-bus-launcher"):
        skip("there is no at-spi2-core")


def start_screen(folder, size="1366x768"):
    """A screen with a window manager and a message bus of its own; the folder is home. The programs to end afterwards."""
    reading, writing = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", size + "x24", "-noreset", "-nolisten", "tcp"],
                              pass_fds=[writing], stderr=subprocess.DEVNULL)
    os.environ["DISPLAY"] = ":" + os.read(reading, 20).decode().strip()
    bus = subprocess.Popen(["dbus-daemon", "--session", "--print-address", "--nofork"], stdout=subprocess.PIPE, text=True,
                           stderr=subprocess.DEVNULL)
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
    os.environ.update(HOME=str(folder), XDG_RUNTIME_DIR=str(folder), QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "KORVEL_HOME"):
        os.environ.pop(name, None)
    manager = subprocess.Popen(["openbox", "--sm-disable"], stderr=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
    await_manager()
    return [manager, bus, server]


def await_manager():
    """A window that comes before it is never told that it is in front."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        told = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True, text=True, check=True).stdout
        if "window id" in told:
            return
        time.sleep(0.05)
    raise AssertionError("waited in vain for the window manager")


def keys(*names):
    subprocess.run(["xdotool", "key", "--delay", "30", *names], check=True)
    time.sleep(0.1)


def picture():
    """All of the screen, rows of three bytes a pixel, and its width."""
    width = int(subprocess.run(["xdotool", "getdisplaygeometry"], capture_output=True, text=True, check=True).stdout.split()[0])
    pixels = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], capture_output=True, check=True).stdout
    return pixels, width


def cut(shot, place):
    """The rows of the picture's part."""
    pixels, width = shot
    height = len(pixels) // 3 // width
    left, right = max(0, place.x - 3), min(width, place.x + place.width + 3)
    return [pixels[3 * (row * width + left):3 * (row * width + right)]
            for row in range(max(0, place.y - 3), min(height, place.y + place.height + 3))]


demand_tools()
warnings.simplefilter("ignore", DeprecationWarning)  # of the bus library



class Reader:
    """What the bus tells of one program. Made once the screen stands, as the bus is found by the environment."""

    def __init__(self):
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib
        self.atspi, self.gone = Atspi, GLib.Error
        self.role, self.state = Atspi.Role, Atspi.StateType
        self.context, self.menus = GLib.MainContext.default(), []
        self.listener = Atspi.EventListener.new(self.hear)
        self.listener.register("object:state-changed:showing")

    def hear(self, event):
        """Menus that open by themselves stand in no window's tree: what tells of them is their coming."""
        try:
            if event.detail1 and event.source is not None and event.source.get_role() == self.role.POPUP_MENU:
                self.menus.append(event.source)
        except self.gone:
            pass  # already

    def take_news(self):
        while self.context.iteration(False):
            pass

    def open_menu(self):
        """That was opened last, while it is shown."""
        self.take_news()
        return next((menu for menu in reversed(self.menus) if self.is_(menu, "SHOWING")), None)

    def wait(self, condition, what):
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            self.take_news()
            try:
                found = condition()
            except self.gone:
                found = None  # the thing has gone meanwhile
            if found:
                return found
            time.sleep(0.1)
        raise AssertionError(f"waited in vain for {what}")

    def frames(self, program):
        """The windows of the process that are shown; by a start of another process all that have the name korvel."""
        desktop = self.atspi.get_desktop(0)
        found = []
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application is None or (program is not None and application.get_process_id() != program):
                continue
            found += [application.get_child_at_index(k) for k in range(application.get_child_count())]
        return [frame for frame in found if frame is not None and self.is_(frame, "SHOWING")]

    def window(self, title, program=None):
        def named():
            return next((frame for frame in self.frames(program) if frame.get_name().startswith(title)), None)
        return self.wait(named, f"the window {title}")

    def is_(self, thing, state):
        return thing.get_state_set().contains(getattr(self.state, state))

    def all_of(self, thing, depth=0):
        yield thing
        if depth > 16 or thing.get_role() in (self.role.TABLE, self.role.LIST, self.role.TREE, self.role.COMBO_BOX):
            return
        for index in range(min(thing.get_child_count(), 300)):
            child = thing.get_child_at_index(index)
            if child is not None:
                yield from self.all_of(child, depth + 1)

    def place(self, thing):
        return thing.get_component_iface().get_extents(self.atspi.CoordType.SCREEN)

    def focused(self, frame):
        """What has the focus. The tab in front and what holds others tell of it too, where something inside them has it."""
        found = [thing for thing in self.all_of(frame)
                 if thing != frame and self.is_(thing, "FOCUSABLE") and self.is_(thing, "FOCUSED")]
        outer = {"page tab": 1, "page tab list": 2, "filler": 3}  # outwards
        return min(found, key=lambda thing: outer.get(thing.get_role_name(), 0), default=None)

    def lines_of(self, thing):
        """Of a list, or of the list that a box of choices holds."""
        inner = thing
        while inner.get_role() == self.role.COMBO_BOX:
            inner = next(child for child in self.children(inner) if child.get_role() == self.role.LIST)
        return self.children(inner)

    def children(self, thing):
        found = (thing.get_child_at_index(index) for index in range(thing.get_child_count()))
        return [child for child in found if child is not None]

    def label_of(self, thing):
        for relation in thing.get_relation_set():
            if relation.get_relation_type() == self.atspi.RelationType.LABELLED_BY:
                return relation.get_target(0).get_name()
        return None

    def value(self, thing):
        """Checked or not, the text, the number, the chosen line: what is said after name and role."""
        role = thing.get_role()
        if role in (self.role.CHECK_BOX, self.role.RADIO_BUTTON) or self.is_(thing, "CHECKABLE"):
            return "checked" if self.is_(thing, "CHECKED") else "not checked"
        if role in (self.role.LIST, self.role.TREE):
            count = thing.get_child_count()
            lines = [thing.get_child_at_index(k) for k in range(min(count, 300))]
            chosen = [line for line in lines if line is not None and self.is_(line, "SELECTED")]
            more = f" and {len(chosen) - 1} more" if len(chosen) > 1 else ""
            name = " / ".join(chosen[0].get_name().strip().splitlines()) if chosen else "nothing"
            return f"{count} lines, selected: {name}{more}"
        if role == self.role.TABLE:
            face = thing.get_table_iface()
            return f"{face.get_n_rows()} rows, {face.get_n_columns()} columns"
        if thing.get_text_iface() is not None and role in (self.role.TEXT, self.role.PASSWORD_TEXT):
            words = thing.get_text_iface().get_text(0, 60)
            return repr(words) if words else "empty"
        number = thing.get_value_iface()
        if number is not None and role in (self.role.SPIN_BUTTON, self.role.SLIDER, self.role.PROGRESS_BAR, self.role.SPLIT_PANE):
            return f"{number.get_current_value():g}"
        return ""

    def spoken(self, thing):
        """As it would be read: name, role, value, state, description."""
        name = thing.get_name().strip()
        label = self.label_of(thing) if thing.get_role() == self.role.COMBO_BOX else None  # its name is its choice
        if label and label.strip() and label.strip() != name:
            name = f"{label.strip()} {name}"
        parts = [name or "(no name)", thing.get_role_name(), self.value(thing)]
        if not self.is_(thing, "SENSITIVE"):
            parts.append("unavailable")
        parts.append(thing.get_description().strip())
        return ", ".join(" ".join(part.split()) for part in parts if part)


def end(programs):
    for program in programs:
        if program.poll() is None:
            program.terminate()
    for program in programs:
        program.wait(timeout=PATIENCE)


def end_windows(reader):
    """Those, too, that a window has opened as processes of their own."""
    for pid in {frame.get_process_id() for frame in reader.frames(None)}:
        if b"korvel" in pathlib.Path(f"/proc/{pid}/cmdline").read_bytes():
            os.kill(pid, 15)


def fresh_folder(home, application):
    """An application folder as after the first start of an installed program."""
    own = home / "app"
    own.mkdir()
    (own / "korvelf157.exe").symlink_to(application / "korvelf157.exe")
    model_name = "Z:" + str(home).replace("/", "\\")
    (own / "MISC.TXT").write_bytes(f"{model_name}\r\n\r\nFalse\r\n".encode())
    return own


def prepared_folder(samples, application):
    """An application folder of its own and the samples beside it."""
    def prepare(home):
        home = pathlib.Path(home)
        (home / "work").mkdir()
        for name in ("ALDER.DAT", "ALDER2.DAT"):
            shutil.copy(samples / name, home / "work")
        own = home / "app"
        own.mkdir()
        for file in application.iterdir():
            if file.name != "korvel" and file.is_file() and file.name != "MISC.TXT":
                (own / file.name).symlink_to(file)
        model_name = "Z:" + str(home / "work").replace("/", "\\")
        (own / "MISC.TXT").write_bytes(f"{model_name}\r\n\r\nFalse\r\n".encode())
        return home / "work", own
    return prepare
