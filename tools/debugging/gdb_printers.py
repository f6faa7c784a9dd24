"""Shows Bstr, VARIANT, Variant and AdapterEntry by their values in gdb. docs/developer-guide.md says how."""

import json

import gdb
import gdb.printing

# VARTYPE: its name, and the member of the union that holds the value.
TYPES = {
    0: ("VT_EMPTY", None), 1: ("VT_NULL", None), 2: ("VT_I2", "iVal"), 3: ("VT_I4", "lVal"),
    5: ("VT_R8", "dblVal"), 8: ("VT_BSTR", "bstrVal"), 10: ("VT_ERROR", "scode"),
    11: ("VT_BOOL", "boolVal"), 13: ("VT_UNKNOWN", "punkVal"), 17: ("VT_UI1", "bVal"),
    18: ("VT_UI2", "uiVal"), 19: ("VT_UI4", "ulVal"),
}
VT_ARRAY = 0x2000


def bstr(text):
    """The 4 bytes before a BSTR hold its length in bytes."""
    address = int(text)
    if address == 0:
        return "null"
    read = gdb.selected_inferior().read_memory
    size = int.from_bytes(read(address - 4, 4).tobytes(), "little")
    units = read(address, size).tobytes() if size else b""
    return json.dumps(units.decode("utf-16-le", "replace"), ensure_ascii=False)


def variant(value):
    type_bits = int(value["vt"])
    name, member = TYPES.get(type_bits & ~VT_ARRAY, ("vt %d" % type_bits, None))
    if type_bits & VT_ARRAY:
        array = value["parray"]
        count = int(array["rgsabound"][0]["cElements"]) if int(array) else 0
        return "VT_ARRAY | %s, %d elements" % (name, count)
    if member is None:
        return name
    held = value[member]
    if name == "VT_BSTR":
        return "VT_BSTR " + bstr(held)
    if name == "VT_BOOL":
        return "VT_BOOL " + ("true" if int(held) else "false")
    if name == "VT_ERROR":
        return "VT_ERROR 0x%08x" % (int(held) & 0xFFFFFFFF)
    return "%s %s" % (name, float(held) if name == "VT_R8" else int(held))


def adapter_entry(entry):
    return "%s, number %d, %s" % (entry["key"].format_string(), int(entry["number"]),
                                  entry["macAddress"].format_string())


def printer(text):
    class Printer:
        def __init__(self, value):
            self.value = value

        def to_string(self):
            return text(self.value)

    return Printer


printers = gdb.printing.RegexpCollectionPrettyPrinter("wifi_adapter_provider")
printers.add_printer("Bstr", "^platform::Bstr$", printer(lambda value: bstr(value["text_"])))
printers.add_printer("Variant", "^platform::Variant$", printer(lambda value: variant(value["value_"])))
printers.add_printer("VARIANT", "^(tag)?VARIANT$", printer(variant))
printers.add_printer("AdapterEntry", "^wifi::AdapterEntry$", printer(adapter_entry))
gdb.printing.register_pretty_printer(None, printers, replace=True)
