# SPDX-License-Identifier: Apache-2.0
"""Which of the host's functions work, as the document about the platform's objects has it."""
import pathlib
import re

TITLE = "## What the host offers\n"
REST = ("every function", "every other function")
STATES = {"works": True, "`ENOTSUP`": False}


def read_offers(document, headers):
    """Whether each function works; every header has a table, every function one line of it."""
    text = pathlib.Path(document).read_text()
    chapter = re.split(r"^## ", text.split(TITLE, 1)[1], flags=re.M)[0]
    tables = dict(re.findall(r"^### `<(.*?)>`\n(.*?)(?=^### |\Z)", chapter, flags=re.M | re.S))
    declared = {name: functions for name, functions in headers.contents.items() if functions}
    if set(tables) != set(declared):
        raise ValueError(f"{document}: tables and headers differ: {set(tables) ^ set(declared)}")
    offers = {}
    for name, functions in declared.items():
        offers.update(_read_table(f"{document}: {name}", tables[name], functions))
    return offers


def _read_table(where, table, functions):
    states = {}
    rest = None
    for names, state in re.findall(r"^\| ([^-|].*?) \| (.*?) \|$", table, flags=re.M)[1:]:
        if state not in STATES:
            raise ValueError(f"{where}: {state}")
        if names in REST:
            rest = STATES[state]
        for function in re.findall(r"`(\w+)`", names):
            if function in states or function not in functions:
                raise ValueError(f"{where}: {function} is none of its functions, or twice there")
            states[function] = STATES[state]
    missing = [function for function in functions if function not in states]
    if missing and rest is None:
        raise ValueError(f"{where}: {missing} are missing")
    return {**states, **{function: rest for function in missing}}
