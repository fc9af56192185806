"""Compiles every expression of Visual Studio's view as a member of the class that it is for, where all members can be
reached: natvis_test.py VIEW ROOT COMPILER..."""

import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

NAMESPACE = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"
INSTANCES = {  # of what the view says for all instances of a template
    "KELValueList<*>": ("KELUnicodeString",),
    "KELReference<*>": ("KELSysTSBaseUnknown",),
    "ZrvPropertyValue<*>": ("float",),
    "KELSYPHashMap<*,*>": ("KELUnicodeString", "ZrvProperty*"),
}
# Members of Visual C++'s standard library, and what stands for them in a portable one.
STANDARD_MEMBERS = [
    ("m_slots._Mypair._Myval2._Myfirst", "m_slots.data()"),
    ("._Mypair._Myval2", ".get()"),
]
CODE = {"Item", "ExpandedItem", "Size", "ValuePointer", "StringView", "SmartPointer", "Exec"}


def expressions(element):
    """The expressions of an element and all below it, in their order."""
    tag = element.tag.removeprefix(NAMESPACE)
    text = (element.text or "").strip()
    if "Condition" in element.attrib:
        yield f"static_cast<bool>({element.attrib['Condition']})"
    if tag == "Variable":
        yield f"auto {element.attrib['Name']} = {element.attrib['InitialValue']}"
    if tag in CODE:
        yield text
    embedded = text if tag == "DisplayString" else element.attrib.get("Name", "") if tag == "Item" else ""
    yield from re.findall(r"\{([^{}]+)\}", embedded.replace("{{", "").replace("}}", ""))
    for child in element:
        yield from expressions(child)


def view_class(number, element):
    """A class that derives from the one shown and has its expressions in a function."""
    name = element.attrib["Name"]
    arguments = INSTANCES.get(name, ())
    shown = name[:name.index("<")] + f"<{', '.join(arguments)}>" if arguments else name
    lines = []
    for expression in (one for child in element for one in expressions(child)):
        expression = re.sub(r",(s8|en|na|x)$", "", expression)
        for i, argument in enumerate(arguments, 1):
            expression = expression.replace(f"$T{i}", argument)
        for theirs, ours in STANDARD_MEMBERS:
            expression = expression.replace(theirs, ours)
        lines.append(f"        {expression};\n")
    assert lines and not any("*," in line or "$T" in line for line in lines), (name, lines)
    return len(lines), f"struct View{number} : {shown} {{\n    void Show()\n    {{\n{''.join(lines)}    }}\n}};\n"


def main():
    view, root, *compiler = sys.argv[1:]
    types = ElementTree.parse(view).getroot().findall(f"{NAMESPACE}Type")
    classes = [view_class(number, element) for number, element in enumerate(types)]
    folders = ["PublicInterfaces", "ProtectedInterfaces", "Platform/include", "Zorvel.m/src"]
    source = '#include "Zorvel.h"\n#include "ZrvProperties_data.h"\n#include "ZrvPropertyDefinition.h"\n'
    source += "".join(text for _, text in classes)
    result = subprocess.run(
        [*compiler, "-std=c++20", "-fsyntax-only", "-fno-access-control", "-DZRV_STATIC", "-DKEL_STATIC", "-w",
         *(f"-I{pathlib.Path(root) / folder}" for folder in folders), "-x", "c++", "-"],
        input=source, text=True, check=False)
    print(f"{sum(count for count, _ in classes)} expressions of {len(classes)} classes")
    if result.returncode != 0:
        print("\n".join(f"{i:3} {line}" for i, line in enumerate(source.splitlines(), 1)))
    return result.returncode


if __name__ == "__main__":
    sys.exit(main())
