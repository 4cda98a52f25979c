# What neither compiler nor clang-tidy says about every file here, Windows sources included. Prints one line for each
# finding and ends with status 1 when there is one. Reads formatted sources (see .clang-format).

function complain(text) {
    printf "%s:%d: %s\n", FILENAME, FNR, text
    found = 1
}

# The line without texts in quotes and without its comment.
function code_of(line) {
    gsub(/\\./, "", line)
    gsub(/"[^"]*"/, "\"\"", line)
    gsub(/'[^']*'/, "' '", line)
    sub(/\/\/.*/, "", line)
    return line
}

function depth_of(text,    opened, closed) {
    opened = gsub(/\(/, "(", text)
    closed = gsub(/\)/, ")", text)
    return opened - closed
}

FNR == 1 {
    if (previous != "" && lines > kMostLines) {
        printf "%s: %d lines; more than %d is worth a split\n", previous, lines, kMostLines
        found = 1
    }
    previous = FILENAME
    depth = 0
    in_head = 0
    isHeader = FILENAME ~ /\.h$/
    isLibrary = FILENAME ~ /^(calc|core|views|pickers|access|printing|ical)\//
}

{
    lines = FNR
    code = code_of($0)
}

# Braces around every body. The head of a statement may go over several lines: it ends where its parentheses close.
in_head || code ~ /^[ ]*(\} )?(else )?(if|for|while) (constexpr )?\(/ {
    in_head = 1
    depth += depth_of(code)
    if (depth <= 0) {
        in_head = 0
        depth = 0
        if (code !~ /(\{|\\|;)[ ]*$/ && code !~ /\{.*\}/) {
            complain("a body without braces")
        } else if (code ~ /;[ ]*$/ && code !~ /^[ ]*\} while / && code !~ /\{/) {
            complain("a body without braces")
        }
    }
}
code ~ /^[ ]*(\} )?else$/ { complain("a body without braces") }

# The calls and macros of a test compare with nullptr to say so in their message.
code ~ /[!=]= nullptr/ && code ~ /(if|while) \(/ && FILENAME !~ /^tests\// { complain("a comparison with nullptr: test the pointer itself") }

isHeader && isLibrary && code ~ /^using namespace/ { complain("using namespace in a library header") }
# Constants of a namespace begin with k, so that a name says what it is.
code ~ /^(static |inline )?constexpr [^(]*[ *&][A-Za-z_][A-Za-z0-9_]*(\[[^\]]*\])*( =|;|\{)/ {
    name = code
    sub(/( =|;|\{|\[).*/, "", name)
    sub(/.*[ *&]/, "", name)
    if (name !~ /^k[A-Z]/ && name !~ /^(YMN|WM)_/) { # messages keep the upper case that hosts expect
        complain("a constant without k: " name)
    }
}

# A host's own folder of that name must not be able to capture what our headers include.
isHeader && isLibrary && code ~ /^#include/ && $0 ~ /"(mfc|calc|core|views|pickers|access|printing|ical)\// {
    complain("a library header names its neighbour by a path relative to itself")
}

BEGIN { kMostLines = 600 }

END {
    if (lines > kMostLines) {
        printf "%s: %d lines; more than %d is worth a split\n", previous, lines, kMostLines
        found = 1
    }
    exit found
}
