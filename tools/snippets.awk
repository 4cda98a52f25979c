# Puts snippets of sources into a document: copies the document to the output, and where the line
#     <!-- snippet tests/package/GuideHost.cpp month -->
# stands before a block of code, the block becomes what the source has between the lines "// snippet month" and
# "// end of snippet" (in CMake's files with # for //, in C between /* and */), without the indentation that all of it has;
# without a name the whole source. Each block in C++, C, CMake's language or of a resource file must have such a line.

function fail(text) {
    printf "%s:%d: %s\n", FILENAME, FNR, text > "/dev/stderr"
    failed = 1
}

# The lines of the snippet, and 0 when the source has none of that name.
function print_snippet(source, name,    line, count, lines, i, indent, inside, width) {
    indent = -1
    inside = name == ""
    while ((getline line < source) > 0) {
        if (inside && line ~ /^ *(\/\/|#|\/\*) end of snippet( \*\/)?$/) {
            break
        }
        if (inside) {
            lines[++count] = line
            match(line, /^ */)
            width = RLENGTH
            if (line != "" && (indent < 0 || width < indent)) {
                indent = width
            }
        }
        if (name != "" && line ~ "^ *(//|#|/[*]) snippet " name "( [*]/)?$") {
            inside = 1
        }
    }
    close(source)
    for (i = 1; i <= count; ++i) {
        print substr(lines[i], indent + 1)
    }
    return count
}

/^<!-- snippet [^ ]+ ([^ ]+ )?-->$/ {
    source = $3
    name = NF == 5 ? $4 : ""
    print
    next
}

/^```(cpp|c|cmake|rc)$/ {
    print
    if (source == "") {
        fail("code that is cut from no source")
    } else if (!print_snippet(source, name)) {
        fail("no snippet " name " in " source)
    }
    source = ""
    replacing = 1
    next
}

/^```/ { replacing = 0 }

!replacing { print }

END { exit failed }
