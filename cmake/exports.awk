# The exports of the installed DLL: from the public headers (the files it is given) the names that a host can write, from
# the objects the symbols; the def file gets those symbols whose outermost name, namespaces aside, is one of these.
#
#   awk -v nm="nm -g --defined-only @objects.list" -v def=Dayvane.def -f exports.awk HEADER...
#
# A class counts where its body stands, a function or a variable by its name. Symbols are read as the Itanium ABI of C++
# writes them: _ZN, the lengths and names of what it stands in, its own. An operator counts by its first operand.

FNR == 1 { in_comment = 0 }

{
    line = $0
    sub(/\/\/.*/, "", line)
    gsub(/"[^"]*"/, "\"\"", line)
    if (line ~ /^ *namespace [A-Za-z_:]+/) {
        name = line
        sub(/^ *namespace +/, "", name)
        sub(/[^A-Za-z_:].*/, "", name)
        count = split(name, parts, "::")
        for (i = 1; i <= count; ++i) { namespaces[parts[i]] = 1 }
    }
    if (line ~ /(class|struct|union) +[A-Za-z_]/ && line !~ /;[ ]*$/) {
        name = line
        sub(/.*(class|struct|union) +/, "", name)
        sub(/[^A-Za-z0-9_].*/, "", name)
        public[name] = 1
    }
    if (line ~ /struct +[A-Za-z_].*\{.*;/) { # all of it on one line
        name = line
        sub(/.*struct +/, "", name)
        sub(/[^A-Za-z0-9_].*/, "", name)
        public[name] = 1
    }
    if (line ~ /^ *extern .*;/) {
        name = line
        sub(/(\[[^\]]*\])* *;.*/, "", name)
        sub(/.*[^A-Za-z0-9_]/, "", name)
        public[name] = 1
    }
    while (match(line, /[A-Za-z_][A-Za-z0-9_]* *\(/)) {
        name = substr(line, RSTART, RLENGTH)
        sub(/ *\($/, "", name)
        public[name] = 1
        line = substr(line, RSTART + RLENGTH)
    }
}

# The outermost name of a symbol that is no namespace; "" where there is none that we write.
function outermost(symbol,    rest, length_of, name) {
    rest = symbol
    sub(/^_?_Z/, "", rest)
    sub(/^(TV|TI|TS|TT|GV|Thn?[0-9]+_|Tv[0-9n]+_[0-9n]+_|Tc.*_)/, "", rest)
    if (rest ~ /^N/) {
        sub(/^N[VKrOR]*/, "", rest)
    }
    if (rest ~ /^S/) { return "" } # of the compiler's library
    sub(/^L/, "", rest)
    while (1) {
        # An operator: of the first class that it is for.
        if (rest ~ /^[a-z][a-zA-Z]/) { sub(/^[^0-9]*/, "", rest) }
        if (!match(rest, /^[0-9]+/)) { return "" }
        length_of = substr(rest, 1, RLENGTH) + 0
        name = substr(rest, RLENGTH + 1, length_of)
        rest = substr(rest, RLENGTH + 1 + length_of)
        if (!(name in namespaces)) { return name }
        sub(/^E/, "", rest)
    }
}

END {
    print "LIBRARY Dayvane.dll\nEXPORTS" >def
    close(def)
    while ((nm | getline line) > 0) {
        if (split(line, fields, " ") != 3 || fields[3] !~ /^_?_Z/ || seen[fields[3]]++) { continue }
        name = outermost(fields[3])
        if (name == "" || !(name in public)) { continue }
        symbol = fields[3]
        if (symbol ~ /^__Z/) { sub(/^_/, "", symbol) } # 32 bit: the compiler's own underscore
        print "    " symbol (fields[2] ~ /^[Tt]$/ ? "" : " DATA") | "LC_ALL=C sort >>'" def "'"
        ++exported
    }
    if (close(nm) != 0 || exported == 0) {
        print "no symbols from: " nm >"/dev/stderr"
        exit 1
    }
}
