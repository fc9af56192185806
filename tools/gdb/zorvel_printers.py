"""What gdb shows of the library's classes: `print set` gives names, types and values.

gdb loads this file by itself when it lies in its auto-load folder under the name of the library. By hand:

    (gdb) source zorvel_printers.py

Strings, lists and typed values are read with the debug information of the program. What sets and prototypes hold is known
to the library alone: where it has no debug information, the answer says so.
"""

import itertools
import struct

import gdb
import gdb.printing

TYPE_NAMES = {  # by what a value holds
    "unsigned char *": "bytePtr",
    "KELUnicodeString": "KELUnicodeString",
    "unsigned char": "KELBoolean",
    "int": "KELINT32",
    "unsigned int": "KELUINT32",
    "float": "float",
    "double": "double",
    "KELRawCollfloat": "floatList",
    "KELSysTSBaseUnknown *": "KELSysTSBaseUnknownPtr",
}
CODES = {0: "zrvEC_NothingDone", 1: "zrvEC_OK", 0xFFFFFFFF: "zrvEC_Error"}

# A string's number of bytes when its first word is the address of a KELText, in front of whose bytes lie: holders, hash,
# length, capacity, characters. Read without debug information: compilers leave that of KELText out of most programs.
LONG_TEXT = 0xFF
TEXT_HEADER = struct.Struct("<5I")
VALUE = "ZrvPropertyValue<"


class NotKnown(Exception):
    """There is no debug information for what would have to be read."""


def plain(kind):
    """A type without names given to it, references and const."""
    kind = kind.strip_typedefs()
    if kind.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
        kind = kind.target().strip_typedefs()
    return kind.unqualified()


def known_type(name):
    """The class of that name, all of whose members are known."""
    try:
        kind = gdb.lookup_type(name).strip_typedefs()
    except gdb.error as error:
        raise NotKnown(name) from error
    if not kind.fields():
        raise NotKnown(name)
    return kind


def sized(value, elements):
    return f"{plain(value.type).name} of size {sum(1 for _ in elements)}"


def is_null(pointer):
    return int(pointer) == 0


def limited(texts):
    """As many texts as gdb prints elements of an array, and a mark when there are more."""
    limit = gdb.parameter("print elements")
    shown = list(itertools.islice(texts, limit if limit is None else limit + 1))
    return shown if limit is None or len(shown) <= limit else [*shown[:limit], "..."]


# Strings and lists.


def text_bytes(string):
    words = string["m_form"]["m_words"]
    last = int(words[3])
    length = last >> 16 & 0xFF
    if length != LONG_TEXT:
        return b"".join(int(words[i]).to_bytes(8, "little") for i in range(4))[:length]
    address = int(words[0])
    memory = gdb.selected_inferior()
    length = TEXT_HEADER.unpack(memory.read_memory(address, TEXT_HEADER.size))[2]
    return bytes(memory.read_memory(address + TEXT_HEADER.size, length))


def text(string):
    return text_bytes(string).decode("utf-8", "backslashreplace")


def quoted(string):
    escaped = "".join(c if c.isprintable() else c.encode("unicode_escape").decode("ascii")
                      for c in text(string).replace("\\", "\\\\").replace('"', '\\"'))
    limit = gdb.parameter("print elements")
    return f'"{escaped}"' if limit is None or len(escaped) <= limit else f'"{escaped[:limit]}"...'


def list_elements(values):
    """The elements of one of the platform's lists of strings."""
    return [values["m_elements"][i] for i in range(int(values["m_size"]))]


def float_elements(floats):
    elements = floats["m_elements"]
    if is_null(elements):
        return
    if not elements.type.strip_typedefs().target().strip_typedefs().fields():
        raise NotKnown("KELRawCollfloat::Elements")
    values = (elements + 1).cast(gdb.lookup_type("float").pointer())
    for i in range(int(elements["size"])):
        yield (values + i).dereference()


# Values.


def typed_part(value):
    """A value as the ZrvPropertyValue that it is or derives from; None for any other."""
    try:
        value = value.cast(value.dynamic_type)
    except gdb.error:  # it is of a class without debug information
        pass
    kind = plain(value.type)
    while not (kind.name or "").startswith(VALUE):
        bases = [field for field in kind.fields() if field.is_base_class]
        if not bases:
            return None
        value, kind = value[bases[0]], plain(bases[0].type)
    return value


def class_at(address):
    """The name of the class of the object there, as its table of virtual functions tells."""
    try:
        table = gdb.Value(address).cast(gdb.lookup_type("void").pointer().pointer()).dereference()
        symbol = gdb.execute(f"info symbol {int(table)}", to_string=True)
    except gdb.error:
        return "unknown"
    return symbol.split(" for ", 1)[1].split(" + ")[0] if " for " in symbol else "unknown"


def held_by(value):
    """The name of the type that a value holds, and the contents."""
    part = typed_part(value)
    if part is not None:
        return str(plain(part.type).template_argument(0).strip_typedefs()), part["m_typedValue"]
    # Some programs leave the classes of values to the library to tell. What a value holds lies behind its first word.
    name = class_at(int(value.address))
    if not name.startswith(VALUE):
        raise NotKnown(name)
    held = name[len(VALUE):-1].replace("*", " *").replace("  ", " ")
    word = gdb.lookup_type("void").pointer()
    kind = word if held.endswith("*") else gdb.lookup_type(held)
    return held, (value.address.cast(word.pointer()) + 1).cast(kind.pointer()).dereference()


def value_text(value):
    """Type name and contents of a value."""
    held, contents = held_by(value)
    name = TYPE_NAMES.get(held, held)
    if name == "KELBoolean":
        return f"{name} {'false' if int(contents) == 0 else 'true'}"
    if name == "bytePtr":  # of unknown length
        return f"{name} {int(contents):#x}"
    if name == "KELSysTSBaseUnknownPtr":
        contents = contents if contents.type.code == gdb.TYPE_CODE_PTR else contents["m_object"]
        return f"{name} " + ("null" if is_null(contents) else f"{int(contents):#x} ({class_at(int(contents))})")
    return f"{name} {contents.format_string()}"


# Sets and prototypes.


def owned(value, member, name):
    """What a std::unique_ptr of a value owns, of the class of that name; None when it is empty."""
    if not value.type.strip_typedefs().fields():  # a compiler leaves it to the library to tell
        raise NotKnown(plain(value.type).name)
    pointer = value[member]
    address = pointer.address.cast(known_type(name).pointer().pointer()).dereference()
    return None if is_null(address) else address.dereference()


def map_entries(keyed_map, value_name):
    """Keys and values of a KELSYPHashMap, sorted by key as a reader looks for them."""
    entry = known_type(f"KELSYPHashMapPair<KELUnicodeString, {value_name}>").pointer()
    table = keyed_map["m_table"]
    slots = table["m_slots"]["_M_impl"]["_M_start"]
    entries = [slots[i]["element"].cast(entry) for i in range(int(table["m_size"]))]
    return sorted(((one["key"], one["value"]) for one in entries), key=lambda pair: text_bytes(pair[0]))


def set_entries(properties):
    data = owned(properties, "m_PropertiesData", "ZrvPropertiesData")
    entries = [] if data is None else map_entries(data["m_propertyMap"], "ZrvProperty*")
    return [(name, pointer.dereference()) for name, pointer in entries]


def prototype_entries(prototype):
    declared = owned(prototype, "m_properties", "KELSYPHashMap<KELUnicodeString, ZrvPropertyDefinition>")
    return [] if declared is None else map_entries(declared, "ZrvPropertyDefinition")


# The printers: each is made from a value, which is no reference.


class TextPrinter:
    """A value that is a text. A derived class says which."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        try:
            return self.describe(self.value)
        except NotKnown as missing:
            return f"(no debug information: {missing} is not known)"


class StringPrinter(TextPrinter):
    describe = staticmethod(quoted)


class SystemStringPrinter(TextPrinter):
    @staticmethod
    def describe(value):
        return quoted(value["m_text"])


class FloatListPrinter(TextPrinter):
    @staticmethod
    def describe(value):
        return "{" + ", ".join(limited(element.format_string() for element in float_elements(value))) + "}"


class ReturnCodePrinter(TextPrinter):
    @staticmethod
    def describe(value):
        code = int(value["m_rc"]) & 0xFFFFFFFF
        trace = value["m_trace"]
        name = CODES.get(code, f"error {code}")
        return f"{name}: {quoted(trace)}" if text_bytes(trace) else name


class ValuePrinter(TextPrinter):
    describe = staticmethod(value_text)


class ValuePointerPrinter(TextPrinter):
    @staticmethod
    def describe(value):
        return "null" if is_null(value) else f"{int(value):#x}: {value_text(value.dereference())}"


class UnknownPrototypePrinter(TextPrinter):
    @staticmethod
    def describe(value):
        return f"(no debug information: {class_at(int(value.address))} is not known)"


class ListPrinter:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        return sized(self.value, list_elements(self.value))

    def children(self):
        for i, element in enumerate(list_elements(self.value), 1):
            yield f"[{i}]", element


class MapPrinter:
    """Names with what belongs to them. A derived class says where they are."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        try:
            return sized(self.value, self.entries(self.value))
        except NotKnown as missing:
            return f"(the library has no debug information: {missing} is not known)"

    def children(self):
        try:
            entries = self.entries(self.value)
        except NotKnown:
            return
        for i, (name, value) in enumerate(entries):
            yield f"name {i}", name
            yield f"value {i}", value

    def display_hint(self):
        return "map"


class SetPrinter(MapPrinter):
    entries = staticmethod(set_entries)


class PrototypePrinter(MapPrinter):
    entries = staticmethod(prototype_entries)


class PropertyPrinter(TextPrinter):
    """A property of a set: its value, and its parameters when it has some."""

    @staticmethod
    def describe(value):
        held = value["m_value"]["m_value"]
        return "without a value" if is_null(held) else value_text(held.dereference())

    def children(self):
        parameters = owned(self.value, "m_pParameters", "ZrvProperties")
        if parameters is not None:
            yield "parameters", parameters


class DefinitionPrinter(TextPrinter):
    """A declaration of a prototype: its type name, and its nested prototype when it has one."""

    @staticmethod
    def describe(value):
        return text(value["m_type"])

    def children(self):
        prototype = self.value["m_pPropertyPrototype"]["m_object"]
        if not is_null(prototype):
            yield "prototype", prototype.dereference()


PRINTERS = {
    "KELUnicodeString": StringPrinter,
    "KELSysTSUnicodeString": SystemStringPrinter,
    "KELListValKELUnicodeString": ListPrinter,
    "KELSysTSListOfUnicodeString": ListPrinter,
    "KELRawCollfloat": FloatListPrinter,
    "ZrvRC": ReturnCodePrinter,
    "ZrvPropertyValueBase": ValuePrinter,
    "ZrvProperties": SetPrinter,
    "ZrvProperty": PropertyPrinter,
    "ZrvPrototypeImpl": PrototypePrinter,
    "ZrvPropertyDefinition": DefinitionPrinter,
    "ZrvPropertiesPrototype": UnknownPrototypePrinter,
    "ZrvConstPropertiesPrototype": UnknownPrototypePrinter,
}


class Printers(gdb.printing.PrettyPrinter):
    """Finds the printer of a value by its class."""

    def __call__(self, value):
        kind = plain(value.type)
        if kind.code == gdb.TYPE_CODE_PTR:
            target = plain(kind.target()).name or ""
            is_value = target == "ZrvPropertyValueBase" or target.startswith(VALUE)
            return ValuePointerPrinter(value.cast(kind)) if is_value else None
        if value.type.strip_typedefs().code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
            value = value.referenced_value()
        name = kind.name or ""
        if PRINTERS.get(name) is UnknownPrototypePrinter:  # unless its own class is known
            value = value.cast(value.dynamic_type)
            name = plain(value.type).name or ""
        if name.startswith(VALUE):
            return ValuePrinter(value)
        return PRINTERS[name](value) if name in PRINTERS else None


gdb.printing.register_pretty_printer(gdb.current_objfile(), Printers("Zorvel"), replace=True)
