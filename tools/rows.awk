# Compares tables of the documents with the tests that prove them: where the line
#     <!-- rows tests/docview/SettingsTest.cpp settings -->
# stands before a table, its first and last cells must be the first two strings of the rows {"...", "...", that the source
# has between "// settings" and "// end of settings". A line for each difference; exit status 1 when there is one.
#
# With -v fill=1 it writes the document instead, the last cells taken from the source.

function fail(text) {
    printf "%s: %s\n", FILENAME, text > "/dev/stderr"
    failed = 1
}

function read_rows(source, name,    line, text, inside, parts) {
    split("", expected)
    text = ""
    while ((getline line < source) > 0) {
        if (line ~ "^ *// end of " name "$") { inside = 0 }
        if (inside) { text = text " " line }
        if (line ~ "^ *// " name "$") { inside = 1 }
    }
    close(source)
    while (match(text, /\{"[^"]*",[ ]*"[^"]*"/)) {
        split(substr(text, RSTART, RLENGTH), parts, "\"")
        expected[parts[2]] = parts[4]
        text = substr(text, RSTART + RLENGTH)
    }
}

function finish(    name) {
    for (name in expected) {
        if (!(name in seen)) { fail("no row for " name) }
    }
    split("", seen)
    active = 0
}

/^<!-- rows [^ ]+ [^ ]+ -->$/ {
    read_rows($3, $4)
    active = 1
    heading = 2
}

active && /^\|/ {
    if (heading > 0) {
        --heading
    } else {
        count = split($0, cells, "|")
        name = cells[2]
        gsub(/^ +| +$|`/, "", name)
        last = cells[count - 1]
        gsub(/^ +| +$/, "", last)
        seen[name] = 1
        if (!(name in expected)) {
            fail("no test has a row " name)
        } else if (fill) {
            sub(/\|[^|]*\|$/, "| " expected[name] " |")
        } else if (expected[name] != last) {
            fail(name ": \"" last "\", the test says \"" expected[name] "\"")
        }
    }
}

active && !/^\|/ && heading == 0 { finish() }

fill { print }

END { exit failed }
