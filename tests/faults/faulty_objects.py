#!/usr/bin/env python3
"""Writes a class Faulty<I> for the interfaces of the host: every operation counts, and may fail,
before it asks the real object. What an interface gains is thereby counted, too.

Usage: faulty_objects.py OUTPUT HEADER...
"""
import pathlib
import re
import sys

TAGGED = ["IHostElementName", "IHostCustomProperty"]

# The interfaces whose objects are wrapped wherever one is answered, and what more those can do.
WRAPPED = {
    "IHostPropertySet": ["IHostPropertyNames"],
    "CVNExpressionEngine": ["IHostExpressionExplanation"],
    "IHostGroupElement": [*TAGGED, "IHostFrameElement", "IHostDraftOption"],
    "IHostTextElement": TAGGED,
    "IHostFilledElement": TAGGED,
} | dict.fromkeys(
    """IHostObjectCopy IHostPoint IHostEnvelope IHostLine IHostTextSymbol IHostFont IHostColor IHostFillSymbol
    IHostLineSymbol IHostApplication IHostDocument IHostActiveView IHostDisplay IHostStatusBar
    IHostProgressAnimation IHostDisplayTransformation IHostScratchWorkspaceFactory
    IHostWorkspaceFactory IHostWorkspace IHostTable IHostRow IHostCursor IHostFields IHostField
    IHostQueryFilter IHostIdentifier IHostDatasetEnum IHostDataset IHostTableSort IHostCommandBars
    IHostCommandItem CVNLayoutContext CVNMapBook MapSeriesManager IHostIndexLayer
    IHostElementContainer""".split(), [])

# Had from the host alone.
SERVICES = {"IHostLocale": [], "IHost": []}

BEGIN = """#pragma once

#include "faults/Wrapper.h"

namespace faults {

using namespace host;
"""

INTERFACE = re.compile(r"struct (\w+) : ([\w\s,]+) \{(.*?)\};", re.S)
OPERATION = re.compile(r"virtual ([^;]+?) (\w+)\(([^()]*)\)( const)? = 0;")
LAST_WORDS = re.compile(r"(\w+)\s*(?:,|$)")


def read(headers):
    """The bases and the operations of each interface."""
    interfaces = {}
    for header in headers:
        text = re.sub("//.*", "", pathlib.Path(header).read_text())
        for name, bases, body in INTERFACE.findall(text):
            interfaces[name] = re.findall(r"virtual (\w+)", bases), OPERATION.findall(body)
    return interfaces


def operations(interfaces, name):
    """Those of an interface and of its bases, each with the interface that it stands in."""
    bases, own = interfaces.get(name, ([], []))
    found = [(name, *operation) for operation in own]
    for base in bases:
        found += operations(interfaces, base)
    return found


def definition(interface, owner, answer, name, parameters, const):
    call = f"Real<{owner}>().{name}({', '.join(LAST_WORDS.findall(parameters))})"
    if owner == "IHostClonable":
        call = f"return PassAs<{interface}>({call})"
    elif name == "TemplateLayout":
        call = f"return PassAs<IHostElementContainer>({call})"
    elif name == "InsertRow":  # The real table takes only rows of its own.
        call = call.replace("(buffer)", "(Faulty<IHostRow>::RealOf(buffer))")
    elif answer != "void":
        call = f"return Pass({call})"
    return f"""    {answer} {name}({parameters}){const} override {{
        faults_.Tick("{interface}", "{name}");
        {call};
    }}
"""


def wrapper(interfaces, name, more):
    text = f"""
template <>
class Faulty<{name}> : public Wrapper<{', '.join([name, *more])}> {{
public:
    using Wrapper::Wrapper;
"""
    for part in [name, *more]:
        for operation in operations(interfaces, part):
            if not operation[1].endswith("&"):  # Services are for a derived class to answer.
                text += definition(name, *operation)
    return text + "};\n"


def main():
    output, *headers = sys.argv[1:]
    interfaces = read(headers)
    text = BEGIN
    for name in WRAPPED:
        text += f"template <>\ninline constexpr bool kWraps<{name}> = true;\n"
    for name, more in (WRAPPED | SERVICES).items():
        text += wrapper(interfaces, name, more)
    pathlib.Path(output).write_text(text + "\n}  // namespace faults\n")


main()
