# Makes one of the files that are derived from dayvane_ctl.iface:
#   awk -v want=header|messages|exports|imports32|csharp|delphi|reference -v version=1.0.0 -f generate.awk dayvane_ctl.iface
# Plain awk, so that every machine that builds the library can run it.

BEGIN {
    FS = "|"
    split(version, part, ".")
    versionNumber = part[1] * 65536 + part[2] * 256 + part[3]
    messageBase = 1280 # WM_USER + 0x100: below are messages of the system's own controls
    lastMessage = messageBase + 255

    kinds["all"] = "all controls"
    kinds["views"] = "the five views"
    kinds["timegrids"] = "DayvaneDay, DayvaneMultiDay"
    kinds["multiday"] = "DayvaneMultiDay"
    kinds["dates"] = "the views, DayvaneMiniCalendar, DayvaneMiniYear"
    kinds["minis"] = "DayvaneMiniCalendar, DayvaneMiniYear"

    split("UINT int COLORREF LPARAM HDC SYSTEMTIME POINT NMHDR LPWSTR LPCWSTR", names, " ")
    split("uint int uint IntPtr IntPtr SystemTime Point NotifyHeader IntPtr IntPtr", sharp, " ")
    split("UINT Integer COLORREF LPARAM HDC TSystemTime TPoint TNMHdr PWideChar PWideChar", pascal, " ")
    for (i in names) {
        sharpType[names[i]] = sharp[i]
        pascalType[names[i]] = pascal[i]
    }
    begin()
}

/^#/ || /^[ \t]*$/ { next }
{
    gsub(/[ \t]+$/, "", $1)
    lines++
}
$1 == "section" { section($2, $3); next }
$1 == "class" { window_class($2, $3, $4); next }
$1 == "const" { constant($2, $3, $4); next }
$1 == "record" { end_record(); record = $2; records[record] = 1; begin_record($2, $3); next }
$1 == "field" { field($2, $3, $4); next }
$1 == "notify" { notification($2, $3, $4, $5); next }
$1 == "post" { posted($2, $3, $4, $5); next }
$1 == "message" { message(); next }
$1 == "func" { func_($2, $3, $4, $5); next }
{ problem("there is no kind of row '" $1 "'") }
END {
    if (!failed) {
        end_record()
        finish()
    }
}

function problem(text) {
    print FILENAME ":" FNR ": " text >"/dev/stderr"
    failed = 1
    exit 1
}

function is(wanted) { return want == wanted }
function hex(number) { return sprintf("0x%04X", number) }

# ---- Begin and end

function begin() {
    made = "Made from dayvane_ctl.iface by ./dev generate: change that file."
    if (is("header")) {
        print "/* clang-format off */\n/* The C interface of DayvaneCtl.dll: calendar and schedule controls for every language and compiler.\n *"
        print " * C89, and C++. " made
        print " * Each message and record is described on the page \"The C interface\" of the documents.\n */"
        print "#ifndef DAYVANE_CTL_H\n#define DAYVANE_CTL_H\n"
        print "#include <windows.h>\n#include <commctrl.h>\n"
        print "#ifdef __cplusplus\nextern \"C\" {\n#endif\n"
        print "/* " version ", as DayvaneVersion() answers it */"
        printf "#define DAYVANE_CTL_VERSION 0x%06X\n\n", versionNumber
        print "#define DVM_FIRST (WM_USER + 0x100)\n#define DVM_LAST (DVM_FIRST + 0xFF)"
        print "#define DV_FAILED(result) ((result) <= -100)"
        print "#define DV_INLINE static __inline"
    } else if (is("messages")) {
        print "// " made
        print "// DV_MESSAGE(number, handler, controls, what wParam points to or void, what lParam points to or void)"
    } else if (is("exports") || is("imports32")) {
        print "; " made
        print "LIBRARY DayvaneCtl.dll\nEXPORTS"
    } else if (is("csharp")) {
        print "// Declarations of DayvaneCtl.dll for C#. " made
        print "// Not compiled by the tests of Dayvane.\nusing System;\nusing System.Runtime.InteropServices;\n"
        print "public static class Dayvane\n{"
        printf "    public const uint DAYVANE_CTL_VERSION = 0x%06X;\n", versionNumber
        print "    public const int DVM_FIRST = 0x500;\n"
        print "    [DllImport(\"user32.dll\", CharSet = CharSet.Unicode)]"
        print "    public static extern IntPtr SendMessageW(IntPtr control, int message, IntPtr wParam, IntPtr lParam);\n"
        print "    [StructLayout(LayoutKind.Sequential)]\n    public struct SystemTime\n    {"
        print "        public ushort Year, Month, DayOfWeek, Day, Hour, Minute, Second, Milliseconds;\n    }\n"
        print "    [StructLayout(LayoutKind.Sequential)]\n    public struct Point\n    {\n        public int X, Y;\n    }\n"
        print "    [StructLayout(LayoutKind.Sequential)]\n    public struct NotifyHeader\n    {"
        print "        public IntPtr Control;\n        public UIntPtr Id;\n        public int Code;\n    }"
    } else if (is("delphi")) {
        print "// Declarations of DayvaneCtl.dll for Delphi. " made
        print "// Not compiled by the tests of Dayvane.\nunit DayvaneCtl;\n\ninterface\n"
        print "uses\n  Winapi.Windows, Winapi.Messages;\n\n{$ALIGN 8}\n"
        printf "const\n  DAYVANE_CTL_VERSION = $%06X;\n  DVM_FIRST = WM_USER + $100;\n", versionNumber
    } else if (is("reference")) {
        print "# The C interface\n"
        print "<!-- " made " -->\n"
        print "`DayvaneCtl.dll` needs no other DLL and throws nothing across its border. `dayvane_ctl.h` is plain C89;"
        print "`DayvaneCtl.cs` and `DayvaneCtl.pas` declare the same for C# and Delphi (not compiled by our tests). The"
        print "header has a function for each message, such as `DvAddItem(control, flags, &item)` for `DVM_ADDITEM`."
    } else {
        print "generate.awk: what is wanted?" >"/dev/stderr"
        failed = 1
        exit 1
    }
}

function finish() {
    if (is("header")) {
        print "\n#ifdef __cplusplus\n}\n#endif\n\n#endif"
    } else if (is("csharp")) {
        print "}"
    } else if (is("delphi")) {
        print "\nimplementation\n" functions "\nend."
    }
}

# ---- Rows

function section(title, text) {
    end_record()
    if (is("header")) {
        print "\n/* ---- " title " */"
    } else if (is("csharp")) {
        print "\n    // ---- " title
    } else if (is("delphi")) {
        print "\n// ---- " title
    } else if (is("reference")) {
        print "\n## " title
        if (text != "") {
            print "\n" text
        }
        table = ""
    }
    inConst = 0
}

# Begins a table of the reference page when another one, or none, is open.
function rows(head) {
    if (table != head) {
        print "\n" head
        line = head
        gsub(/[^|]+/, "---", line)
        print line
        table = head
    }
}

function pascal_const() {
    if (!inConst) {
        print "\nconst"
        inConst = 1
    }
}

function macro_of(name,    text, i, c, before) {
    # DayvaneMiniYear: DAYVANE_MINIYEAR
    return "DAYVANE_" toupper(substr(name, length("Dayvane") + 1))
}

function window_class(name, kind, text) {
    kinds[kind] = name
    if (is("header")) {
        printf "#define %s L\"%s\" /* %s */\n", macro_of(name), name, text
    } else if (is("csharp")) {
        printf "    public const string %s = \"%s\";\n", macro_of(name), name
    } else if (is("delphi")) {
        pascal_const()
        printf "  %s = '%s';\n", macro_of(name), name
    } else if (is("reference")) {
        rows("| Window class | What it shows |")
        printf "| `%s` | %s |\n", name, text
    }
}

function constant(name, value, text) {
    end_record()
    if (is("header")) {
        printf "#define %s %s /* %s */\n", name, value ~ /^-/ ? "(" value ")" : value, text
    } else if (is("csharp")) {
        printf "    public const int %s = %s; // %s\n", name, value, text
    } else if (is("delphi")) {
        pascal_const()
        sub(/^0x/, "$", value)
        printf "  %s = %s; // %s\n", name, value, text
    } else if (is("reference")) {
        rows("| Name | Value | Meaning |")
        printf "| `%s` | %s | %s |\n", name, value, text
    }
}

function begin_record(name, text) {
    if (is("header")) {
        printf "\n/* %s */\ntypedef struct %s\n{\n", text, name
    } else if (is("csharp")) {
        printf "\n    // %s\n    [StructLayout(LayoutKind.Sequential)]\n    public struct %s\n    {\n", text, name
    } else if (is("delphi")) {
        printf "\ntype\n  // %s\n  P%s = ^%s;\n  %s = record\n", text, name, name, name
        inConst = 0
    } else if (is("reference")) {
        printf "\n### %s\n\n%s\n", name, text
        table = ""
    }
}

function field(type, name, text) {
    if (record == "") {
        problem("a field without a record")
    }
    if (!(type in sharpType)) {
        problem("fields have no type '" type "'")
    }
    if (is("header")) {
        printf "    %s %s;%s\n", type, name, text == "" ? "" : " /* " text " */"
    } else if (is("csharp")) {
        printf "        public %s %s;\n", sharpType[type], name
    } else if (is("delphi")) {
        printf "    %s: %s;\n", name, pascalType[type]
    } else if (is("reference")) {
        rows("| Field | Type | Holds |")
        printf "| `%s` | %s | %s |\n", name, type, text
    }
}

function end_record() {
    if (record == "") {
        return
    }
    if (is("header")) {
        print "} " record ";\n"
    } else if (is("csharp")) {
        print "    }\n"
    } else if (is("delphi")) {
        print "  end;\n"
    }
    table = ""
    record = ""
}

function notification(name, value, type, text) {
    end_record()
    if (name !~ /^(MCN|NM)_/) { # those are the system's own
        if (is("header")) {
            printf "#define %s (%s) /* %s: %s */\n", name, value, type, text
        } else if (is("csharp")) {
            printf "    public const int %s = %s; // %s: %s\n", name, value, type, text
        } else if (is("delphi")) {
            pascal_const()
            printf "  %s = %s; // %s: %s\n", name, value, type, text
        }
    }
    if (is("reference")) {
        rows("| Notification | Value | Record | When |")
        printf "| `%s` | %s | %s | %s |\n", name, value, type, text
    }
}

function posted(name, value, wparam, text) {
    end_record()
    if (is("reference")) {
        rows("| Message to the parent | Value | wParam | When |")
        printf "| `%s` | %s | %s | %s |\n", name, value, wparam, text
    } else {
        constant(name, value, text " wParam: " wparam)
    }
}

# "in DV_ITEM item": sets direction, type and name; a plain "int nIndex" has no direction.
function parameter(text,    words, count) {
    count = split(text, words, " ")
    direction = type = name = ""
    if (count == 3) {
        direction = words[1]
        type = words[2]
        name = words[3]
    } else if (count == 2) {
        type = words[1]
        name = words[2]
    } else if (text != "-") {
        problem("no parameter: '" text "'")
    }
}

function message(    wtype, wname, ltype, lname, ldirection, code) {
    end_record()
    if (NF != 10) {
        problem("a message has ten fields")
    }
    parameter($6)
    wtype = type
    wname = name
    parameter($7)
    ltype = type
    lname = name
    ldirection = direction
    code = messageBase + $3
    if (code in used) {
        problem("the number " $3 " is used twice")
    }
    if (!($5 in kinds)) {
        problem("there are no controls '" $5 "'")
    }
    used[code] = 1
    if (is("header")) {
        header_message($2, $3, $4, wtype, wname, ltype, lname, ldirection, $10)
    } else if (is("messages")) {
        printf "DV_MESSAGE(%s, %s, %s, %s)\n", $2, $4, $5, ldirection != "" ? ltype : (ltype == "LPCWSTR" ? "WCHAR" : "void")
    } else if (is("csharp")) {
        printf "    public const int %s = DVM_FIRST + %s; // wParam: %s; lParam: %s; %s\n", $2, $3, $6, $7, $8
    } else if (is("delphi")) {
        pascal_const()
        printf "  %s = DVM_FIRST + %s; // wParam: %s; lParam: %s; %s\n", $2, $3, $6, $7, $8
    } else if (is("reference")) {
        reference_message(code, ldirection, ltype)
    }
}

function header_message(name, offset, handler, wtype, wname, ltype, lname, ldirection, text,    arguments, w, l) {
    arguments = "HWND control"
    w = "0"
    l = "0"
    if (wtype != "") {
        arguments = arguments ", " wtype " " wname
        w = "(WPARAM)" wname
    }
    if (ldirection != "") {
        arguments = arguments ", " (ldirection == "in" ? "const " : "") ltype "* " lname
    } else if (ltype != "") {
        arguments = arguments ", " ltype " " lname
    }
    if (ltype != "") {
        l = "(LPARAM)" lname
    }
    printf "\n#define %s (DVM_FIRST + %s)%s\n", name, offset, text == "" ? "" : " /* " text " */"
    printf "DV_INLINE LRESULT Dv%s(%s)\n{\n    return SendMessageW(control, %s, %s, %s);\n}\n", handler, arguments, name, w, l
}

function reference_message(code, ldirection, ltype,    answers, list, count, i) {
    printf "\n### %s (%s)\n\n", $2, hex(code)
    if ($10 != "") {
        print $10 "\n"
    }
    printf "- Controls: %s\n", kinds[$5]
    if ($6 != "-") {
        printf "- wParam: %s\n", $6
    }
    if ($7 != "-") {
        printf "- lParam: %s\n", $7
    }
    printf "- Result: %s\n", $8
    answers = ""
    if (ldirection != "" || ltype == "LPCWSTR") {
        answers = answers ", `DVE_POINTER`"
    }
    if (ltype in records) {
        answers = answers ", `DVE_SIZE`"
    }
    if ($5 != "all" && $9 !~ /KIND/) {
        answers = answers ", `DVE_KIND`"
    }
    count = split($9, list, " ")
    for (i = 1; i <= count; i++) {
        answers = answers ", `DVE_" list[i] "`"
    }
    if (answers != "") {
        printf "- Errors: %s\n", substr(answers, 3)
    }
    table = ""
}

function func_(name, result, parameters, text,    arguments, list) {
    end_record()
    if (is("header")) {
        printf "\n/* %s */\n%s __stdcall %s(%s);\n", text, result, name, parameters == "" ? "void" : parameters
    } else if (is("exports")) {
        print "    " name
    } else if (is("imports32")) { # the bytes of its parameters, all of which are of a word
        print "    " name "@" 4 * split(parameters, list, ",")
    } else if (is("reference")) {
        printf "\n### %s\n\n`%s %s(%s)`\n\n%s\n", name, result, name, parameters == "" ? "void" : parameters, text
    } else if (is("csharp")) {
        arguments = parameters
        gsub(/UINT/, "uint", arguments)
        gsub(/LPWSTR/, "[Out] char[]", arguments)
        gsub(/DV_LUNAR\*/, "ref DV_LUNAR", arguments)
        printf "\n    // %s\n    [DllImport(\"DayvaneCtl.dll\", CharSet = CharSet.Unicode, ExactSpelling = true)]\n", text
        printf "    public static extern %s %s(%s);\n", result == "UINT" ? "uint" : "int", name, arguments
    } else if (is("delphi")) {
        pascal_function(name, result, parameters, text)
        inConst = 0
    }
}

function pascal_function(name, result, parameters, text,    list, count, i, words, declared, pointer) {
    count = split(parameters, list, /, */)
    declared = ""
    for (i = 1; i <= count; i++) {
        split(list[i], words, " ")
        pointer = sub(/\*$/, "", words[1])
        declared = declared (i > 1 ? "; " : "") words[2] ": "
        declared = declared (pointer ? "P" words[1] : pascalType[words[1]])
    }
    declared = "function " name (count ? "(" declared ")" : "") ": " pascalType[result] "; stdcall"
    printf "\n// %s\n%s;\n", text, declared
    functions = functions "\n" declared "; external 'DayvaneCtl.dll';"
}
