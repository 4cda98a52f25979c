#!/usr/bin/env python3
"""A public header as Doxygen wants it: reference_filter.py FILE writes it to the output. With --missing FILE... it only
names what nothing is said of, and ends with status 1 when there is such a name.

The headers say what a name is for in plain comments, in the lines above it or behind it; what a class is stands in the
head of its file. All of that becomes Doxygen's comments. A getter is told by the function that sets its value; what the
headers leave to a name itself stands in reference_names.txt."""

import os
import re
import sys

COMMENT = re.compile(r"^(\s*)//(?!/) ?(.*)$")
TRAILING = re.compile(r"^(.*[;,{})\w\]\"])\s+//(?!/|<) ?(.*)$")
SCOPE = re.compile(r"^\s*(?:template\s*<.*>\s*)?(?:typedef\s+)?(namespace|class|struct|enum|union|extern\s+\"C\")\b[^;(]*$")
TYPE = re.compile(r"^(?:template\s*<.*>\s*)?(?:class|struct|enum(?: class)?)\s+(\w+)(?!.*;\s*$)")
GETTER = re.compile(r"\b(?:Get|Is)(\w+)\(")
LABEL = re.compile(r"^\s*(public|protected|private)\s*:\s*$")
# Macros and message handlers of MFC: what they declare is nobody's to call.
MACRO = re.compile(r"^\s*(DECLARE_\w+|BEGIN_MESSAGE_MAP|END_MESSAGE_MAP|ON_\w+|afx_msg)\b")
QUIET = re.compile(r"^\s*(#|using\s+[\w:]+;|using namespace|class\s+\w+;|struct\s+\w+;|enum class \w+;|extern template\b|static_assert)")

# What Doxygen asks no word for: values of an enumeration, constructors without arguments, what a base class has told, and
# what was declared before.
SILENT = re.compile(r"^namespace\b|^\w+( = \w+)?,?$|^\w+\(\)( :.*|;)$| override\b|=$|\w::\w+\(")

ONE = r"\w+(?:\[\w+\])?(?:\s*=\s*[^,;(){}]+)?"
SEVERAL = re.compile(r"^(\s*)((?:const )?[\w:]+(?:<[^>]*>)?)\s+(" + ONE + r"(?:,\s*" + ONE + r")+);$")
# The name that a line declares: before the first bracket, initializer or end.
NAME = re.compile(r"(operator\s*[^\s\w(]+|operator \w+\s*\*?|[~\w]+)\s*(?:\[[^\]]*\])*\s*(?:\(|=[^=]|;|,|$|\{)")


def read_names(path):
    """The sentences for the names of the header, those for any header included."""
    names, wanted = {}, False
    with open(os.path.join(os.path.dirname(__file__), "reference_names.txt"), encoding="utf-8") as file:
        for line in file:
            if line.startswith("= "):
                wanted = line[2:].strip() == "any" or path.endswith(line[2:].strip())
            elif wanted and not line.startswith("#") and ": " in line:
                name, sentence = line.strip().split(": ", 1)
                names[name] = sentence
    return names


class Filter:
    def __init__(self, path, lines):
        self.names = read_names(path)
        self.lines = lines
        self.stem = re.sub(r"^C(?=[A-Z])", "", path.rsplit("/", 1)[-1].removesuffix(".h"))
        self.setters = set(re.findall(r"\b(?:Set|Show|Enable)(\w+)\(", "\n".join(lines)))
        self.head = []  # of the file, the class's that has its name
        self.fresh = False  # the next declaration has its comment
        self.scopes = []  # True: names are declared here
        self.statement = ""  # the code of the statement so far
        self.in_union = False
        self.is_protected = False
        self.protected = []  # of the scopes around
        self.private_from = None  # how deep the class stands whose private part this is
        self.out = []
        self.missing = []  # names without a word

    def declares(self):
        return all(self.scopes)

    def comment(self, indent, text):
        text = text.replace("\\", "\\\\").replace("<", "\\<")
        self.out.append(f"{indent}/// {text}".rstrip())
        self.fresh = True

    def document(self, line, trailing):
        """What stands before a declaration that has nothing of its own."""
        if self.fresh or trailing or not self.declares() or self.statement.strip():
            return
        code = line.strip()
        if not code or code[0] in "{}" or LABEL.match(line) or QUIET.match(line):
            return
        doc = []
        named = TYPE.match(line)
        if named and re.sub(r"^C(?=[A-Z])", "", named[1]) == self.stem:
            doc = self.head
        getter = GETTER.search(line)
        if not doc and getter and getter[1] in self.setters:
            doc = [f"What was set for it; see the function that sets {getter[1]}."]
        if not doc:
            doc = self.told(code)
        if not doc and ("~" in code or code.endswith(("= delete;", "= default;"))):
            doc = ["As the language has it."]
        elif not doc and self.is_protected:
            doc = ["For derived classes."]
        if not doc and not SILENT.search(code):
            self.missing.append(code)
        self.out += [f"/// {text}".rstrip() for text in doc]

    def told(self, code):
        """What reference_names.txt says of the name that the line declares."""
        code = re.sub(r"<[^<>]*>|<[^<>]*<[^<>]*>[^<>]*>", "", code.split("//")[0])
        code = re.sub(r"\boperator ?(\W{1,2})\(", r"operator\1 (", code)
        callback = re.search(r"\(\*(\w+)\)", code)
        named = re.search(r"\b(?:class|struct|enum class|enum)\s+(\w+)", code)
        using = re.match(r"using\s+(\w+)\s*=", code)
        name = callback or using or named or NAME.search(code)
        sentence = self.names.get(name[1].strip()) if name else None
        return [sentence] if sentence else []

    def braces(self, code):
        for char in re.sub(r'"(\\.|[^"\\])*"|\'(\\.|[^\'\\])+\'', "", code):
            if char == "{":
                self.scopes.append(bool(SCOPE.match(self.statement)))
                self.protected.append(self.is_protected)
                self.is_protected = False
                self.statement = ""
            elif char == "}":
                if self.scopes:
                    self.scopes.pop()
                    self.is_protected = self.protected.pop()
                self.statement = ""
            elif char == ";" or (char == "," and self.scopes and self.enum()):
                self.statement = ""
            else:
                self.statement += char
        self.statement += " "
        if LABEL.match(self.statement):
            self.statement = ""

    def hides(self, line):
        """Whether the line is of a private part; these are left out, and so are the braces of unions without a name."""
        label = LABEL.match(line)
        if label:
            self.private_from = len(self.scopes) if label[1] == "private" else None
            self.is_protected = label[1] == "protected"
            if label[1] == "private":
                return True
        if self.private_from is not None:
            if line.strip().startswith("}") and len(self.scopes) == self.private_from:
                self.private_from = None
                return False
            if not COMMENT.match(line):
                self.braces(line.split("//")[0])
            return True
        if line.strip() == "union":
            self.in_union = True
        elif not self.in_union or line.strip() not in ("{", "};"):
            return False
        elif line.strip() == "};":
            self.in_union = False
        return True

    def enum(self):
        """Whether a comma ends a name: not within brackets, nor in a list of base classes."""
        return "(" not in self.statement and "<" not in self.statement and not SCOPE.match(self.statement)

    def single_lines(self):
        """The lines, with a line for each name where several are declared in one; a template's parameters and its name
        in one."""
        lines = re.sub(r"^(template <.*>)\n", r"\1 ", "\n".join(self.lines), flags=re.M).split("\n")
        for line in lines:
            several = SEVERAL.match(line)
            if several:
                yield from (f"{several[1]}{several[2]} {name.strip()};" for name in several[3].split(","))
            else:
                yield line

    def run(self):
        at_head = True
        in_title = False
        for line in self.single_lines():
            if MACRO.match(line) or self.hides(line):
                self.fresh = False
                continue
            found = COMMENT.match(line)
            if at_head and found and not found[1]:
                self.head.append(found[2])
                continue
            if at_head:
                at_head = False
                self.out += ["/// @file"] + [f"/// {text}".rstrip() for text in self.head] + [""]
            if found:
                in_title = found[2].startswith("----") or in_title  # of a group of names, to the end of the comment
                if not self.statement.strip() and not in_title:
                    self.comment(found[1], found[2])
                continue
            in_title = False
            if not line.strip():
                self.fresh = False
                self.out.append("")
                continue
            line = re.sub(r"^\} // namespace .*", "}", line)
            trailing = TRAILING.match(line) if self.declares() and not line.lstrip().startswith("#include") else None
            code = trailing[1] if trailing else line
            self.document(line, trailing)
            if line.lstrip().startswith("#"):
                macro = re.match(r"#define (\w+)", line)
                if macro and macro[1] in self.names:
                    self.out.append(f"/// {self.names[macro[1]]}")
                self.out.append(f"/// {trailing[2]}\n{code}" if trailing else line)
                self.fresh = False
                continue
            scoped = trailing and code.rstrip().endswith(("{", ")"))
            if scoped:
                self.out.append(f"/// {trailing[2]}")
            self.out.append(f"{code} ///< {trailing[2]}" if trailing and not scoped else code)
            self.braces(code)
            self.fresh = False
        return self.out


def read(path):
    with open(path, encoding="utf-8") as file:
        header = Filter(path, file.read().split("\n"))
    header.run()
    return header


def main():
    if sys.argv[1] != "--missing":
        print("\n".join(read(sys.argv[1]).out))
        return 0
    missing = [f"{path}: {code}" for path in sys.argv[2:] for code in read(path).missing]
    for name in missing:
        print(name)
    return 1 if missing else 0


sys.exit(main())
