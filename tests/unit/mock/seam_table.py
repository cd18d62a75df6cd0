# SPDX-License-Identifier: Apache-2.0
"""The table of the seam's slots, and the declarations in the platform's C headers."""
import pathlib
import re

DEFAULT_STOP = "(default stop)"


class Slot:
    def __init__(self, function, operation):
        self.function = function
        self.operation = operation


class SeamClass:
    """A class of the table with its slots."""

    def __init__(self, name, prefix, has_events):
        self.name = name
        self.prefix = prefix
        self.has_events = has_events
        self.slots = []

    def accessor(self):
        """The name under which ZelApi has it; None for a seam of its own."""
        name = self.name.removeprefix("Zel")
        return None if name == self.name else name[0].lower() + name[1:]

    def add(self, function):
        if function == DEFAULT_STOP:
            self.slots.append(Slot(None, "stopEvents"))
            return
        if not function.startswith(self.prefix):
            raise ValueError(f"{self.name}: {function} does not begin with {self.prefix}")
        words = function.removeprefix(self.prefix).split("_")
        operation = words[0] + "".join(word.capitalize() for word in words[1:])
        self.slots.append(Slot(function, operation))


def read_table(path):
    classes = []
    for line in pathlib.Path(path).read_text().splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith(" "):
            classes[-1].add(line.strip())
        else:
            name, prefix, *events = line.split()
            classes.append(SeamClass(name, prefix, events == ["events"]))
    return classes


class Headers:
    """What the platform's headers declare.

    functions: the result's and the parameters' types; nones: what a comment says that a function
    returns for "none"; enums: the enumerators of each; contents: each header's functions.
    """

    def __init__(self, folder, names):
        self.functions = {}
        self.nones = {}
        self.enums = {}
        self.contents = {}
        for name in names:
            for path in sorted(pathlib.Path(folder, name).glob("*.h")):
                before = set(self.functions)
                text = path.read_text()
                self._read(re.sub(r"/\*.*?\*/", "", text, flags=re.S), path)
                self.contents[f"{name}/{path.name}"] = [
                    function for function in self.functions if function not in before]
                self._read_nones(text)

    def _read_nones(self, text):
        for comment, function in re.findall(
                r"/\*\*((?:(?!\*/).)*)\*/\s*\w+_EXPORT\s[^(;]*?(\w+)\(", text, flags=re.S):
            none = re.search(r"(?:None|Unknown)(?: \([^)]*\))?:\s+(\w+|-1)\.", comment)
            if none:
                self.nones[function] = none.group(1)

    def _read(self, text, path):
        exported = re.findall(r"_EXPORT\s[^;{}#]*?;", text)
        for declaration in exported:
            match = re.fullmatch(r"_EXPORT\s+(.*?)(\w+)\s*\(([^()]*)\);", declaration, flags=re.S)
            if not match:
                raise ValueError(f"{path}: not understood: {declaration}")
            result, function, parameters = match.groups()
            parameters = " ".join(parameters.split())
            types = [] if parameters == "void" else [
                re.sub(r"\w+$", "", parameter).strip() for parameter in parameters.split(", ")]
            self.functions[function] = (" ".join(result.split()), types)
        for body, name in re.findall(r"typedef enum\s*\{(.*?)\}\s*(\w+);", text, flags=re.S):
            self.enums[name] = re.findall(r"(\w+)\s*(?:=[^,]*)?(?:,|$)", body.strip())


def check(classes, headers):
    """Every function is in exactly one slot, and every slot's function is declared."""
    in_table = [slot.function for seam in classes for slot in seam.slots if slot.function]
    wrong = sorted(set(in_table) ^ set(headers.functions)) + sorted(
        function for function in set(in_table) if in_table.count(function) > 1)
    if wrong:
        raise ValueError("in the table, or in the headers, but not once in both: " + ", ".join(wrong))
