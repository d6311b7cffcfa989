"""Single changes of C++ sources: a condition, a constant, a text or an order at a time.

Sources are read as tokens, so that comments and preprocessor lines stay as they are. What a change makes of the program
is not known here; one that does not compile is for the caller to drop.
"""

import re
from dataclasses import dataclass

KINDS = ("condition", "constant", "text", "order")

TOKEN = re.compile(
    r"""(?P<skipped> //[^\n]* | /\*.*?\*/ | ^[ ]*\#(?:\\\n|[^\n])* )
      | (?P<text> "(?:\\.|[^"\\\n])*" )
      | (?P<character> '(?:\\.|[^'\\\n])*' )
      | (?P<number> (?:0[xX][0-9a-fA-F]+|\d[\d']*)[uUlL]* )
      | (?P<name> [A-Za-z_]\w* )
      | (?P<sign> ::|->|\+\+|--|&&|\|\||<<|>>|[-+*/%&|^=!<>]=|[^\s\w] )""",
    re.VERBOSE | re.MULTILINE | re.DOTALL,
)

OTHER_RELATION = {
    "==": ("!=",),
    "!=": ("==",),
    "<": ("<=", ">="),
    ">": (">=", "<="),
    "<=": ("<", ">"),
    ">=": (">", "<"),
    "&&": ("||",),
    "||": ("&&",),
}
# Designators, whose order the compiler keeps, and declared parameters.
FIXED = re.compile(r"\..*|(?:const )?[\w:<>]+(?: const)?[ &*]+\w+", re.DOTALL)
OPENING = {"(": ")", "[": "]", "{": "}"}
CLOSING = {closing: opening for opening, closing in OPENING.items()}


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


@dataclass(frozen=True)
class Change:
    """Replaces what stands between `start` and `end` of a file."""

    file: str
    kind: str
    start: int
    end: int
    replacement: str

    def applied(self, source):
        return source[: self.start] + self.replacement + source[self.end :]


def tokens_of(source):
    """The tokens of a source, without comments, preprocessor lines and static assertions."""
    tokens = []
    asserting = False
    for found in TOKEN.finditer(source):
        token = Token(found.lastgroup, found.group(), found.start(), found.end())
        asserting = asserting or token.text == "static_assert"
        if token.kind != "skipped" and not asserting:
            tokens.append(token)
        asserting = asserting and token.text != ";"
    return tokens


def partners_of(tokens):
    """The index of the closing bracket for that of each opening one."""
    partners = {}
    opened = []
    for at, token in enumerate(tokens):
        if token.kind != "sign":
            continue
        if token.text in OPENING:
            opened.append(at)
        elif token.text in CLOSING and opened and tokens[opened[-1]].text == CLOSING[token.text]:
            partners[opened.pop()] = at
    return partners


class Source:
    """One file, and what can be changed in it."""

    def __init__(self, file, text, names):
        """`names` maps a name to the others that could stand in its place."""
        self.file = file
        self.text = text
        self.names = names
        self.tokens = tokens_of(text)
        self.partners = partners_of(self.tokens)

        # The rows of an included table, `KIND(...)`: their kinds by the indices of their brackets.
        self.kinds = {at + 1: token.text for at, token in enumerate(self.tokens) if self.begins_row(at)}

    def begins_row(self, at):
        if not self.file.endswith(".inc") or self.tokens[at].kind != "name" or at + 1 not in self.partners:
            return False
        return not any(opening < at < closing for opening, closing in self.partners.items())

    def changes(self):
        yield from self.relations()
        yield from self.negations()
        yield from self.constants()
        yield from self.texts()
        yield from self.alternatives()
        yield from self.elements()
        yield from self.statements()
        yield from self.rows()

    def change(self, kind, start, end, replacement):
        return Change(self.file, kind, start, end, replacement)

    def relations(self):
        """Each comparison and each joining of conditions, by another one."""
        for token in self.tokens:
            # A template's angle brackets have no blanks around them.
            spaced = self.text[token.start - 1 : token.start].isspace() and self.text[token.end : token.end + 1].isspace()
            if token.kind == "sign" and spaced:
                for other in OTHER_RELATION.get(token.text, ()):
                    yield self.change("condition", token.start, token.end, other)

    def negations(self):
        """Each `!` left out, and each condition of `if`, `while` and `for` turned round."""
        for at, token in enumerate(self.tokens):
            if token.text == "!":
                yield self.change("condition", token.start, token.end, "")
            if token.text not in ("if", "while", "for") or at + 1 not in self.partners:
                continue
            inside = self.split(at + 1, ";")
            if token.text == "for" and len(inside) != 3:
                continue
            start, end = inside[1 if token.text == "for" else -1]
            # A lone comparison or negation is turned round by changing its sign.
            if len(re.findall(r"&&|\|\||==|!|<=|>=| [<>] ", self.text[start:end])) != 1:
                yield self.change("condition", start, end, f"!({self.text[start:end]})")

    def constants(self):
        for token in self.tokens:
            if token.kind == "number":
                yield self.change("constant", token.start, token.end, other_number(token.text))
            elif token.text in ("true", "false"):
                yield self.change("constant", token.start, token.end, "false" if token.text == "true" else "true")
            else:
                for other in self.names.get(token.text, ()) if token.kind == "name" else ():
                    yield self.change("constant", token.start, token.end, other)

    def texts(self):
        """Each text without its last character."""
        for token in self.tokens:
            if token.kind == "text" and len(token.text) > 2:
                last = 2 if token.text[-3] == "\\" else 1
                yield self.change("text", token.end - 1 - last, token.end - 1, "")

    def alternatives(self):
        """The two values of each `a ? b : c`, the one for the other."""
        for at, token in enumerate(self.tokens):
            if token.text != "?":
                continue
            colon = self.next_sign(at + 1, ":")
            end = self.next_sign(colon + 1, ",", ";", ")", "}") if colon is not None else None
            if end is not None:
                yield self.swapped(self.extent(at + 1, colon), self.extent(colon + 1, end))

    def elements(self):
        """Neighbours in a call's arguments or a table's rows, the one for the other."""
        for opening in sorted(self.partners):
            if self.tokens[opening].text == "[" or opening in self.kinds:
                continue
            parts = self.split(opening, ",")
            for first, second in zip(parts, parts[1:]):
                if not any(FIXED.fullmatch(self.text[start:end]) for start, end in (first, second)):
                    yield self.swapped(first, second)

    def statements(self):
        """Neighbouring statements of a line each, the one for the other."""
        line = re.compile(r"^( +)(?!using |return\b|break;|continue;)[^\s/#}.][^\n]*;[^\n;\\]*$", re.MULTILINE)
        found = list(line.finditer(self.text))
        for first, second in zip(found, found[1:]):
            if first.end() + 1 == second.start() and first.group(1) == second.group(1):
                yield self.swapped(first.span(), second.span())

    def rows(self):
        """Neighbouring rows of one kind in an included table, the one for the other."""
        found = [(kind, self.extent(at - 1, self.partners[at] + 1)) for at, kind in self.kinds.items()]
        for (kind, first), (other, second) in zip(found, found[1:]):
            if kind == other:
                yield self.swapped(first, second)

    def swapped(self, first, second):
        between = self.text[first[1] : second[0]]
        replacement = self.text[second[0] : second[1]] + between + self.text[first[0] : first[1]]
        return self.change("order", first[0], second[1], replacement)

    def extent(self, first, behind):
        """Where the tokens from `first` up to and without `behind` stand."""
        return self.tokens[first].start, self.tokens[behind - 1].end

    def next_sign(self, at, *signs):
        """The index of the first of `signs` from `at` on that is in no bracket behind it."""
        while at < len(self.tokens):
            if self.tokens[at].text in signs:
                return at
            if self.tokens[at].text in CLOSING:
                return None
            at = self.partners.get(at, at) + 1
        return None

    def split(self, opening, separator):
        """The extents of what stands in a bracket between separators; empty parts are left out."""
        parts = []
        first = at = opening + 1
        while at <= self.partners[opening]:
            if at == self.partners[opening] or self.tokens[at].text == separator:
                if at > first:
                    parts.append(self.extent(first, at))
                first = at + 1
            at = self.partners.get(at, at) + 1
        return parts


def other_number(text):
    number = re.fullmatch(r"(0[xX][0-9a-fA-F]+|[\d']+)([uUlL]*)", text)
    value = int(number.group(1).replace("'", ""), 0)
    # A mask loses a bit rather than gain one that nothing sets.
    return hex(value & (value - 1)) + number.group(2) if text[:2] in ("0x", "0X") and value else f"{value + 1}"


def interchangeable_names(sources, platform_headers):
    """For each named constant the others of its kind: those of one platform enumeration or family, and those of one
    kind that a source uses.
    """
    groups = {}
    for file, text in platform_headers.items():
        for name in re.findall(r"\b(YFW_[A-Z0-9_]*[A-Z0-9])\b", text):
            family = "_".join(name.split("_")[:2])
            status = file.endswith("status.h") and not name.startswith("YFW_OPERATION")
            groups.setdefault("status" if status else family, set()).add(name)
    for file, text in sources.items():
        for qualifier, name in re.findall(r"(\w+::)?\b(k[A-Z]\w*)\b", text):
            # An enumeration's constants are of one kind wherever they stand; a namespace's may be of any.
            groups.setdefault(qualifier if qualifier[:1].isupper() else f"{file}:{qualifier}", set()).add(name)
    names = {}
    for group in groups.values():
        for name in group:
            names.setdefault(name, set()).update(group - {name})
    return {name: sorted(others) for name, others in names.items()}


def all_changes(sources, platform_headers):
    """The changes of all `sources` (texts by file), without doubles, in an order that depends on nothing else."""
    names = interchangeable_names(sources, platform_headers)
    changes = {}
    for file in sorted(sources):
        for change in Source(file, sources[file], names).changes():
            if change.applied(sources[file]) != sources[file]:
                changes.setdefault(change, None)
    return list(changes)
