# SPDX-License-Identifier: Apache-2.0
"""Writes the C++ of the seam's tests: the platform's functions as recorders, and every slot.

Usage: generate.py TABLE INCLUDE_FOLDER DOCUMENT OUTPUT_FOLDER
"""
import pathlib
import sys

from offers import read_offers
from seam_table import Headers, check, read_table


def includes(headers):
    return "".join(f"#include <{name}>\n" for name in headers.contents)


def platform_functions(headers):
    """Each function of the platform's headers; it records its call, and returns what it is told."""
    text = '#include "PlatformRecorder.h"\n\n' + includes(headers) + "\n"
    for function, (result, types) in headers.functions.items():
        names = [f"argument{number}" for number in range(len(types))]
        parameters = ", ".join(f"{kind} {name}" for kind, name in zip(types, names))
        arguments = "".join(f", {name}" for name in names)
        text += (f"{result} {function}({parameters})\n{{\n"
                 f'    return PlatformRecorder::call<{result}>("{function}"{arguments});\n}}\n\n')
    return text


def enumerators(headers):
    """The values to try arguments of enumerated types with."""
    text = '#include "DistinctValues.h"\n\n' + includes(headers) + "\n"
    for name, values in headers.enums.items():
        text += (f"template<>\nstruct Enumerators<{name}>\n{{\n"
                 f"    static constexpr {name} values[] = {{{', '.join(values)}}};\n}};\n\n")
    return text


def slots(classes):
    text = '#include "SeamSlot.h"\n#include "enumerators.h"\n\n'
    text += "// A virtual operation that comes after all others shows how many there are.\n"
    for seam in classes:
        text += (f"struct After{seam.name} : tamomock::{seam.name}\n{{\n"
                 f"    virtual void after();\n}};\n\n")
    text += ("const std::vector<SeamSlot>& seamSlots()\n{\n"
             "    static const std::vector<SeamSlot> table = {\n")
    for seam in classes:
        for number, slot in enumerate(seam.slots):
            function = f'"{slot.function}"' if slot.function else "nullptr"
            text += (f'        makeSlot<tamomock::{seam.name}>("{seam.name}", "{slot.operation}", '
                     f"{function}, {number}, &tamomock::{seam.name}::{slot.operation}),\n")
    text += "    };\n    return table;\n}\n\n"
    text += ("const std::vector<SeamClass>& seamClasses()\n{\n"
             "    static const std::vector<SeamClass> table = {\n")
    for seam in classes:
        is_provider = f"std::is_base_of_v<tamomock::ZelEventProvider, tamomock::{seam.name}>"
        text += (f'        {{"{seam.name}", {len(seam.slots)}, slotNumber(&After{seam.name}::after), '
                 f'{str(seam.has_events).lower()}, {is_provider}}},\n')
    text += "    };\n    return table;\n}\n\n"
    for seam in classes:
        if not seam.accessor():
            continue
        text += (f"template<>\ntamomock::{seam.name}& defaultObject()\n{{\n"
                 f"    return *defaultZelApi().{seam.accessor()}();\n}}\n\n")
    return text


def domains(classes):
    """What ZelApi has: the name of each domain's accessor and member, and its class."""
    return "".join(f"DOMAIN({seam.accessor()}, {seam.name})\n" for seam in classes if seam.accessor())


def implementations(classes):
    return "".join(f"#include <tamomock/{seam.name}Impl.h>\n" for seam in classes)


def host_functions(headers, offers):
    """A call of each function of the host, with nothing to do for it."""
    text = '#include "HostFunction.h"\n\n' + includes(headers) + "\n#include <cmath>\n\n"
    text += ("const std::vector<HostFunction>& hostFunctions()\n{\n"
             "    static const std::vector<HostFunction> table = {\n")
    for function, (result, types) in headers.functions.items():
        call = f"{function}({', '.join(f'static_cast<{kind}>(0)' for kind in types)})"
        if offers[function] or result == "void":
            body = f"static_cast<void>({call}); return true;"
        else:
            none = headers.nones.get(function, default_none(result))
            none = {"NULL": "nullptr", "NaN": "NAN"}.get(none, none)
            body = f"return isSame<{result}>({call}, {none});"
        works = str(offers[function]).lower()
        text += f'        {{"{function}", {works}, [] {{ {body} }}}},\n'
    return text + "    };\n    return table;\n}\n"


def default_none(result):
    return "NULL" if result.endswith("*") else {"bool": "false"}.get(result, "-1")


def provider_domains(classes):
    """Each service's function that tells its domain."""
    return "".join(f"{seam.slots[1].function},\n" for seam in classes if seam.has_events)


def main(table, include_folder, document, output_folder):
    classes = read_table(table)
    headers = Headers(include_folder, ["screen", "zel"])
    check(classes, headers)
    output = pathlib.Path(output_folder)
    (output / "PlatformFunctions.cpp").write_text(platform_functions(headers))
    (output / "enumerators.h").write_text(enumerators(headers))
    (output / "SeamSlots.cpp").write_text(slots(classes))
    (output / "implementations.h").write_text(implementations(classes))
    (output / "domains.inc").write_text(domains(classes))
    (output / "HostFunctions.cpp").write_text(host_functions(headers, read_offers(document, headers)))
    (output / "providerDomains.inc").write_text(provider_domains(classes))


if __name__ == "__main__":
    main(*sys.argv[1:])
