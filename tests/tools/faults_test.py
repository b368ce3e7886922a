"""The faults that a piece of code offers: each operator where it ought to be found, and nothing where there is no code."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import faults  # noqa: E402


def changed(text, kind=None):
    """The lines that a one-line text may turn into."""
    return [fault.new_line for fault in faults.faults_of("a.cpp", text) if kind in (None, fault.kind)]


OPERATORS = [
    ("relation", "a < b", ["a <= b", "a > b"]),
    ("relation", "a >= b", ["a > b", "a <= b"]),
    ("relation", "a == b", ["a != b"]),
    ("relation", "std::vector<int> a", []),
    ("relation", "a <=> b", []),
    ("arithmetic", "a + b", ["a - b"]),
    ("arithmetic", "a * b / c", ["a / b / c", "a * b * c"]),
    ("arithmetic", "a && b || c", ["a || b || c", "a && b && c"]),
    ("arithmetic", "a += b", ["a -= b"]),
    ("arithmetic", "++a", ["--a"]),
    ("arithmetic", "char* a", []),
    ("arithmetic", 'a + "text"', []),
    ("sign", "a = -b", ["a = b"]),
    ("sign", "f(-1, a - 1)", ["f(1, a - 1)"]),
    ("constant", "a[0]", ["a[1]"]),
    ("constant", "a = 12", ["a = 13", "a = 11"]),
    ("constant", "a = 0.25", ["a = 0.26", "a = 0.24"]),
    ("constant", "a = 1.0", ["a = 1.1", "a = 0.9"]),
    ("constant", "a = 2.34567890123456789e4", ["a = 2.34567890124456789e4", "a = 2.34567890122456789e4"]),
    ("constant", "a = 1e-4", ["a = 2e-4", "a = 0e-4"]),
    ("constant", "a = 0x1FU", ["a = 0x20U", "a = 0x1EU"]),
    ("constant", "a = 65'536U", ["a = 65537U", "a = 65535U"]),
    ("constant", "a2 = b.c3", []),
    ("constant", "virtual int a() = 0;", []),
    ("constant", "virtual int a() const = 0;", []),
    ("constant", "int a = 0;", ["int a = 1;"]),
    ("constant", "int at = 0;", ["int at = 1;"]),
    ("condition", "if (a) b();", ["if (!(a)) b();"]),
    ("condition", "if (int a = f(); a == 2) b();", ["if (int a = f(); !(a == 2)) b();"]),
    ("condition", "if (auto a = f()) b();", []),
    ("condition", "while (f(a)[2]) b();", ["while (!(f(a)[2])) b();"]),
    ("condition", "return a == b ? c : d;", ["return !(a == b) ? c : d;"]),
    ("condition", "f(x, a ? b : c ? d : e)", ["f(x, !(a) ? b : c ? d : e)", "f(x, a ? b : !(c) ? d : e)"]),
    ("not", "if (!a && b != c)", ["if (a && b != c)"]),
    ("name", "a.front()", ["a.back()"]),
    ("name", "return true;", ["return false;"]),
    ("name", "a.rfind(b)", ["a.find(b)"]),
    ("name", "firstly(lastly)", []),
]

STATEMENTS = [
    ("a = b;", [";"]),
    ("a.b(c);", [";"]),
    ("++a;", [";"]),
    ("a[b] += c;", [";"]),
    ("*a = b;", [";"]),
    ("if (a) b();", ["if (a) ;"]),
    ("else b();", ["else ;"]),
    ("for (int i = 0; i < n; ++i) b();", ["for (int i = 0; i < n; ++i) ;"]),
    ("case 1: a = b; break;", ["case 1: ; break;", "case 1: a = b; ;"]),
    ("{ break; }", ["{ ; }"]),
    ("throw a;", [";"]),
    ("return;", [";"]),
    ("return a;", []),
    ("int a = b;", []),
    ("const auto a = b;", []),
    ("std::string a(b);", []),
    ("Type a{1};", []),
    ("using a = b;", []),
    ("class A { int b; };", []),
]


class FaultsTest(unittest.TestCase):
    def test_finds_each_operators_faults(self):
        for kind, text, expected in OPERATORS:
            with self.subTest(kind=kind, text=text):
                self.assertEqual(sorted(changed(text, kind)), sorted(expected))

    def test_drops_statements_but_no_declarations(self):
        for text, expected in STATEMENTS:
            with self.subTest(text=text):
                self.assertEqual(changed(text, "statement"), expected)

    def test_drops_a_call_whole_and_each_statement_within_its_lambda(self):
        text = "each(list, [&](int a) {\n    b(a);\n    c = {a, 1};\n});\n"
        dropped = [text[fault.start:fault.end] for fault in faults.faults_of("a.cpp", text) if fault.kind == "statement"]
        self.assertEqual(sorted(dropped), sorted([text[:-2], "b(a)", "c = {a, 1}"]))

    def test_leaves_comments_texts_and_the_preprocessor_alone(self):
        for text in ("// a < 1", "/* a < 1\n b + 2 */", 'f("a < 1", \'1\')', '"\\" + 1"', 'R"(a < 1)"', "#if A > 1",
                     "static_assert(a < 1);", "using namespace a1;", "template <int A, int B>"):
            with self.subTest(text=text):
                self.assertEqual(changed(text), [])

    def test_keeps_the_number_of_lines(self):
        text = "a.b(c,\n    d);\ne = 1;\n"
        for fault in faults.faults_of("a.cpp", text):
            self.assertEqual(fault.put_into(text).count("\n"), 3)

    def test_names_a_fault_by_its_lines_without_blanks_and_comments(self):
        text = "int f() {\n    return a + b;  // both\n}\n"
        fault, = [fault for fault in faults.faults_of("a.cpp", text) if fault.kind == "arithmetic"]
        self.assertEqual(fault.key(), ("a.cpp", "return a + b;", "return a - b;", 1))
        moved, = [fault for fault in faults.faults_of("a.cpp", "\n\n  " + text) if fault.kind == "arithmetic"]
        self.assertEqual(moved.key(), fault.key())
        self.assertEqual((fault.line, moved.line), (2, 4))

    def test_counts_lines_that_are_the_same(self):
        found = faults.faults_of("a.cpp", "++a;\nb();\n++a;\n")
        self.assertEqual([fault.nth for fault in found if fault.new_line == "--a;"], [1, 2])
        self.assertEqual(len({fault.key() for fault in found}), len(found))


if __name__ == "__main__":
    unittest.main()
