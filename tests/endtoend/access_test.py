"""Walks through the given forms and the engine's window.

access_test.py BUILD SAMPLES [TEST...]      see access_walk.py
"""

import os
import pathlib

import access_walk
from access_walk import READER, WalkTest
from screen_reader import keys


class AccessTest(WalkTest):
    def test_main_form_run_and_engine_window(self):
        program, frame = self.main_form()
        self.check(frame, "Main form, before the first run")
        keys("alt+o", "Escape", "Escape", "alt+r", "0")
        dialog = self.other(program, [frame], "the open dialog")
        READER.wait(lambda: READER.focused(dialog), "the dialog's focus")
        self.check(dialog, "Open dialog (Qt's own)", quiet=("Files", "Sidebar"))
        keys("Escape")
        READER.wait(lambda: READER.frames(program) == [frame], "the dialog's end")
        keys("alt+o", "Escape", "Escape", "alt+r", "0")
        self.file_dialog(program, [frame], "ALDER.DAT")
        engine = READER.window("KORVEL model run: Finished")
        read = self.check(engine, "Engine's window", quiet=("Output of the model",))
        self.read(read, "Close, push button", "Output of the model, text, 'KORVEL demonstration engine")
        labels = [thing.get_name() for thing in READER.all_of(engine) if thing.get_role() == READER.role.LABEL]
        self.assertIn("Finished", labels)
        keys("alt+c")
        READER.wait(lambda: any(thing.get_name() == "ALDER.DAT" for thing in READER.all_of(frame)), "the run on the start page")
        READER.wait(lambda: READER.focused(frame), "the main form's focus")
        read = self.check(frame, "Main form, after a run")
        self.read(read, "Last runs, list, 1 lines, selected: ALDER.DAT, today")
        self.assertTrue(any("9 of 14 reaches miss a target" in line for line in read.lines), read.lines)
        self.assertTrue(any(line.startswith("Run again, push button, ALDER.DAT: ") for line in read.lines), read.lines)

    def test_set_up_and_graph_form(self):
        program = self.start("ALDER.SGR")
        frame = READER.window("Korvel Graphical Results", program)
        READER.wait(lambda: READER.focused(frame), "the set-up form's focus")
        read = self.check(frame, "Graph set-up form")
        self.read(read, "Select upstream reach, combo box", "Select 1 to 5 determinands to be plotted., list, 17 lines",
                  "Plot means, check box, checked")
        keys("Down", "Down", "Down", "Tab", "End", "Tab", "Home", "space")
        keys("alt+p")
        known = [f for f in READER.frames(program) if f == frame or f.get_name().startswith("KORVEL")]
        graph = self.other(program, known, "the graph")
        READER.wait(lambda: READER.focused(graph), "the graph's focus")
        read = self.check(graph, "Graph form")
        self.read(read, "Zoom In, push button", "Scroll up, push button", "More, push button", "Small text, push button")
        drawn = next(thing for thing in READER.all_of(graph) if thing.get_name() == "Graph")
        self.assertEqual(drawn.get_role_name(), "chart")

    def test_report_form_listing_viewer_and_help(self):
        program, frame = self.main_form()
        reports = self.open_reports(program, frame)
        self.check(reports, "Report form, nothing loaded")
        keys("alt+o")
        self.file_dialog(program, [frame, reports], "ALDER.SGR")
        READER.wait(lambda: READER.frames(program) == [frame, reports] and reports.get_name().startswith("Reports for"), "a load")
        READER.wait(lambda: READER.focused(reports), "the focus after a load")
        read = self.check(reports, "Report form")
        self.read(read, "REACHES, list, 14 lines, selected: 1 High Alder and 13 more", "DETERMINANDS, list, 16 lines")
        keys("F1")
        help_form = self.other(program, [frame, reports], "help")
        READER.wait(lambda: READER.focused(help_form), "the focus of help")
        self.check(help_form, "Help")
        keys("Escape")
        READER.wait(lambda: READER.frames(program) == [frame, reports], "the end of help")

    def test_batch_form(self):
        program, frame = self.main_form()
        keys("alt+b")
        batch = self.other(program, [frame], "the batch form")
        READER.wait(lambda: READER.focused(batch), "the batch form's focus")
        read = self.check(batch, "Batch form")
        self.read(read, "Step 1 - Select files, push button", "Title of run:, text, empty")

    def test_printer_setup_and_a_message(self):
        program, frame = self.main_form()
        keys("alt+o", "p")
        dialog = self.other(program, [frame], "the printer's dialog")
        READER.wait(lambda: READER.focused(dialog), "its focus")
        self.check(dialog, "Printer dialog (Qt's own)", quiet=("Copies",))
        keys("Escape")
        READER.wait(lambda: READER.frames(program) == [frame], "the dialog's end")
        keys("alt+g")
        set_up = self.other(program, [frame], "the set-up form")
        READER.wait(lambda: READER.focused(set_up), "its focus")
        keys("alt+p")
        message = self.other(program, [frame, set_up], "a message")
        READER.wait(lambda: READER.focused(message), "the message's focus")
        self.check(message, "Message")
        self.assertTrue(any(thing.get_role() == READER.role.LABEL and thing.get_name() for thing in READER.all_of(message)))

    def test_our_own_windows_follow_the_desktops_text(self):
        """Which Qt does by larger pixels: a window that fills the screen then has fewer of them."""
        heights = []
        for dpi in ("96", "192"):
            os.environ["QT_FONT_DPI"] = dpi
            program, frame = self.main_form()
            keys("alt+o", "Escape", "Escape", "alt+r", "0")
            self.file_dialog(program, [frame], "ALDER2.DAT")
            engine = READER.window("KORVEL model run: Finished")
            heights.append(READER.place(engine).height)
            self.expect_inside(engine)
            keys("alt+c")
            READER.wait(lambda: READER.frames(None) == [frame], "the end of the engine's window")
            keys("ctrl+e")
            explorer = self.other(None, [frame], "the Explorer, started from the main form")
            environment = pathlib.Path(f"/proc/{explorer.get_process_id()}/environ").read_bytes().split(b"\0")
            self.assertIn(f"QT_FONT_DPI={dpi}".encode(), environment)
            self.tearDown()
            READER.wait(lambda: not READER.frames(None), "the end of all windows")
        os.environ.pop("QT_FONT_DPI")
        self.assertLess(1.8 * heights[1], heights[0])


if __name__ == "__main__":
    access_walk.main()
