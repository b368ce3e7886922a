"""The small faults that a C++ file of this project offers: each a place, what stands there and what could stand there.

Operators: relations, arithmetic, constants by one, conditions negated, a statement, a sign or a `not` dropped, the first
taken for the last and the like. Comments, texts and the preprocessor's lines are left alone. The code is read as
clang-format leaves it: blanks stand around `<` where it compares and nowhere else.
"""
import bisect
import dataclasses
import re

RELATIONS = {"<": ("<=", ">"), ">": (">=", "<"), "<=": ("<", ">="), ">=": (">", "<="), "==": ("!=",), "!=": ("==",)}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "/", "&": "|", "|": "&", "<<": ">>", ">>": "<<",
              "&&": "||", "||": "&&", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|="}
SWAPPED = [("first", "last"), ("first", "second"), ("front", "back"), ("begin", "end"), ("find", "rfind"),
           ("min", "max"), ("floor", "ceil"), ("true", "false"), ("any_of", "all_of"), ("any_of", "none_of"),
           ("starts_with", "ends_with"), ("lower_bound", "upper_bound"), ("find_first_of", "find_last_of"),
           ("find_first_not_of", "find_last_not_of")]

MOST_DIGITS = 12  # of a double; where a number has more, the last ones may change nothing

NOT_CODE = re.compile(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])\'(?:\\.|[^\'\\\n])+\''
                      r'|^[ \t]*#(?:[^\n]*\\\n)*[^\n]*', re.DOTALL | re.MULTILINE)
BINARY = re.compile(r"(?<=\s)(<<|>>|<=|>=|==|!=|&&|\|\||[-+*/|&]=|[-+*/%&|<>])(?=\s)")
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9A-Fa-f']+|\d[\d']*(?:\.\d+)?(?:[eE][-+]?\d+)?)(?=[uUlLfF]*(?![\w.']))")
STEP = re.compile(r"\+\+|--")
SIGN = re.compile(r"(?:(?<=[=(,?:{\[] )|(?<=[({\[])|(?<=return ))-(?=[\w(.])")
NOT = re.compile(r"!(?=[\w(*])")
NAME = re.compile(r"\b[A-Za-z_]+\b")
UNTOUCHED = re.compile(r"\b(?:static_assert|operator)\b[^;{]*|^\s*(?:using|namespace|template)\b[^\n]*|(?:(?<=\))|(?<=\) const)) = 0;$",
                       re.MULTILINE)
HEAD = re.compile(r"\s*(?:else\s+)?(?:if(?: constexpr)?|for|while|switch)\s*\(.*\)", re.DOTALL)
LABEL = re.compile(r"\s*(?:else\b|do\b|(?:case\s+(?:[^:]|::)+|default|public|private|protected):(?!:))")
DROPPED = re.compile(r"(?:break|continue|return|throw\b.*|(?:\+\+|--).*"
                     r"|\*?[\w:]+(?:[.\[(]|->|\+\+|--|\s*(?:[-+*/|&%]|<<|>>)?=(?!=)|\s*<<).*)$", re.DOTALL)
KEYWORDS = {"return", "using", "if", "for", "while", "switch", "static_assert", "delete", "throw", "break", "continue"}


@dataclasses.dataclass(frozen=True)
class Fault:
    """Replaces text[start:end]. The lines it touches, before and after it, tell what it is wherever they move."""
    file: str
    kind: str
    start: int
    end: int
    new: str
    line: int = 0
    old_line: str = ""
    new_line: str = ""
    nth: int = 1  # of the faults of a file with the same lines

    def key(self):
        return self.file, self.old_line, self.new_line, self.nth

    def line_key(self):
        return self.file, self.old_line, self.nth

    def put_into(self, text):
        # As many lines as before, so that nothing behind the fault moves.
        lost = text.count("\n", self.start, self.end) - self.new.count("\n")
        return text[:self.start] + self.new + "\n" * lost + text[self.end:]


def blanked(text, filler=" "):
    return re.sub(r"[^\n]", filler, text)


def without_comments(text):
    return NOT_CODE.sub(lambda match: blanked(match[0]) if match[0][0] == "/" else match[0], text)


def code_of(text):
    """The text with everything that is no code blanked; what stood between quotes is quotes."""
    code = NOT_CODE.sub(lambda match: blanked(match[0], '"' if match[0][0] in "\"'R" else " "), text)
    return UNTOUCHED.sub(lambda match: blanked(match[0]), code)


def number_faults(number):
    """The number one more and one less; of a number with decimals or an exponent, the last digit that counts is."""
    if number[:2] in ("0x", "0X"):
        value = int(number.replace("'", ""), 16)
        return [f"0x{value + 1:X}", f"0x{value - 1:X}"] if value else ["0x1"]
    mantissa, letter, exponent = re.fullmatch(r"([\d'.]+)([eE]?)(.*)", number.replace("'", "")).groups()
    digits = mantissa.replace(".", "")
    decimals = len(mantissa) - mantissa.index(".") - 1 if "." in mantissa else 0

    one = 10 ** max(0, len(digits.lstrip("0")) - MOST_DIGITS) if decimals or letter else 1

    def written(value):
        text = str(value).rjust(decimals + 1, "0")
        return (text[:-decimals] + "." + text[-decimals:] if decimals else text) + letter + exponent
    return [written(int(digits) + one)] + ([written(int(digits) - one)] if int(digits) else [])


def swaps_of(name):
    return [two for one, two in SWAPPED if one == name] + [one for one, two in SWAPPED if two == name]


def closing(code, opening):
    """Where the bracket at `opening` is closed."""
    depth = 0
    for at in range(opening, len(code)):
        depth += (code[at] in "([{") - (code[at] in ")]}")
        if depth == 0:
            return at
    return len(code)


def conditions(code):
    """The conditions of if and while, without what is declared before them, and those of `?`."""
    for head in re.finditer(r"\b(?:if|while) \(", code):
        begin, end = head.end(), closing(code, head.end() - 1)
        inner = code[begin:end]
        begin += inner.rfind(";") + 1
        begin += len(code[begin:end]) - len(code[begin:end].lstrip())
        if not re.search(r"[^=<>!]=(?!=)", code[begin:end]):
            yield begin, end
    for mark in re.finditer(r" \?(?= )|\n\s*\?(?= )", code):
        begin, depth = mark.start(), 0
        while begin > 0:
            letter = code[begin - 1]
            depth += (letter in ")]}") - (letter in "([{")
            before = code[max(0, begin - 10):begin]
            if depth < 0 or (depth == 0 and (letter in ",;{}?" or re.search(r"(?:[^=<>!]=|return|[^:]:) $", before))):
                break
            begin -= 1
        begin += len(code[begin:mark.start()]) - len(code[begin:mark.start()].lstrip())
        if begin < mark.start():
            yield begin, mark.start()


def statements(code):
    """Where statements that could be dropped begin and end, before their semicolon."""
    opened, start = [], 0
    for at, letter in enumerate(code):
        if letter in "([":
            opened.append((letter, start))
        elif letter == "{":
            opened.append((letter, start))
            start = at + 1
        elif letter in ")]}" and opened:
            bracket, before = opened.pop()
            continues = letter != "}" or bool(re.match(r"\s*[;,.)\]}(]", code[at + 1:at + 200]))
            start = before if continues else at + 1
            if letter == ")" and not any(other in "([" for other, _ in opened[-1:]) and HEAD.fullmatch(code, start, at + 1):
                start = at + 1
        elif letter == ";" and not any(other in "([" for other, _ in opened[-1:]):
            begin = start
            while label := LABEL.match(code, begin, at):
                begin = label.end()
            begin += len(code[begin:at]) - len(code[begin:at].lstrip())
            if is_droppable(code[begin:at]):
                yield begin, at
            start = at + 1


def is_droppable(statement):
    word = re.match(r"[a-z_]*", statement)[0]
    return bool(DROPPED.match(statement)) and (word not in KEYWORDS - {"throw"} or statement == word)


def places(code):
    """(kind, start, end, new) of every fault."""
    for match in BINARY.finditer(code):
        beside = code[:match.start()].rstrip()[-1:] + code[match.end():].lstrip()[:1]
        kind = "relation" if match[0] in RELATIONS else "arithmetic"
        if kind == "relation" or '"' not in beside:
            for new in RELATIONS.get(match[0]) or [ARITHMETIC[match[0]]]:
                yield kind, match.start(), match.end(), new
    for match in STEP.finditer(code):
        yield "arithmetic", match.start(), match.end(), "--" if match[0] == "++" else "++"
    for match in SIGN.finditer(code):
        yield "sign", match.start(), match.end(), ""
    for match in NUMBER.finditer(code):
        for new in number_faults(match[1]):
            yield "constant", match.start(), match.end(), new
    for begin, end in conditions(code):
        yield "condition", begin, end, None
    for begin, end in statements(code):
        yield "statement", begin, end, ""
    for match in NOT.finditer(code):
        yield "not", match.start(), match.end(), ""
    for match in NAME.finditer(code):
        for new in swaps_of(match[0]):
            yield "name", match.start(), match.end(), new


def one_line(text):
    return " ".join(text.split())


def faults_of(file, text):
    """All faults of a file, in the order of their places."""
    code, text = code_of(text), without_comments(text)
    ends = [match.start() for match in re.finditer("\n", text)] + [len(text)]
    seen, faults = {}, []
    for kind, start, end, new in sorted(places(code), key=lambda place: (place[1], place[2], place[0], place[3] or "")):
        new = f"!({text[start:end]})" if new is None else new
        number = bisect.bisect_left(ends, start)
        first = ends[number - 1] + 1 if number else 0
        last = ends[bisect.bisect_left(ends, end)]
        old_line = one_line(text[first:last])
        new_line = one_line(text[first:start] + new + text[end:last])
        nth = seen[old_line, new_line] = seen.get((old_line, new_line), 0) + 1
        faults.append(Fault(file, kind, start, end, new, number + 1, old_line, new_line, nth))
    return faults
