# Makes the resource tables of a module, and the .qrc file that names them. XeResourceTables.cmake has the rules.
#
#   awk -f XeResourceTables.awk MODULE RESOURCE_H STRINGS
#
# MODULE is a file with the module's file name. IDs, ST and tables.qrc go into the working directory. What is wrong is
# told on the standard error output as file:line: text; after an error nothing is written and the exit code is 1.

function report(what) { print FILENAME ":" FNR ": " what > "/dev/stderr" }

function fail(what) {
    report(what)
    failed = 1
}

function trimmed(text) {
    gsub(/^[ \t]+|[ \t]+$/, "", text)
    return text
}

function withoutComments(line,    code) {
    if (inComment) {
        if (!match(line, /\*\//))
            return ""
        inComment = 0
        return withoutComments(substr(line, RSTART + 2))
    }
    if (!match(line, /\/[\/*]/))
        return line
    code = substr(line, 1, RSTART - 1)
    if (substr(line, RSTART, 2) == "//")
        return code
    inComment = 1
    return code " " withoutComments(substr(line, RSTART + 2))
}

function hexadecimal(digits,    value) {
    for (value = 0; digits != ""; digits = substr(digits, 2))
        value = 16 * value + index("0123456789abcdef", tolower(substr(digits, 1, 1))) - 1
    return value
}

# The 32-bit unsigned number that a text stands for, as a text; empty if there is none.
function numberOf(text,    negative, value) {
    while (text ~ /^\(.*\)$/)
        text = trimmed(substr(text, 2, length(text) - 2))
    if (text in idOf)
        return idOf[text]
    negative = sub(/^-[ \t]*/, "", text)
    if (text ~ /^(0|[1-9][0-9]*)$/)
        value = text + 0
    else if (text ~ /^0[xX][0-9a-fA-F]+$/)
        value = hexadecimal(substr(text, 3))
    else
        return ""
    if (value > (negative ? 2147483648 : 4294967295))
        return ""
    return sprintf("%.0f", negative && value ? 4294967296 - value : value)
}

function define(name, id) {
    if (name in idOf && idOf[name] != id)
        return fail(name " is " idOf[name] " in line " lineOf[name] " and " id " here")
    if (!(id in nameOf))
        ids[++idCount] = id
    else if (nameOf[id] != name)
        report("warning: " name " takes the number " id " from " nameOf[id] " in line " lineOf[nameOf[id]] \
               ", which no lookup finds any more")
    nameOf[id] = name
    idOf[name] = id
    lineOf[name] = FNR
}

# The line is #define NAME with something behind it.
function readDefine(line,    name, value, id) {
    sub(/^#[ \t]*define[ \t]+/, "", line)
    match(line, /^[A-Za-z_0-9]+/)
    name = substr(line, 1, RLENGTH)
    value = trimmed(substr(line, RLENGTH + 1))
    if (value == "" || name ~ /^_APS_/)
        return 1
    id = numberOf(value)
    if (id != "")
        define(name, id)
    return id != ""
}

# What stands between the quotes has the escapes of an INI file already, but for "". There a leading @ is doubled.
function iniText(text,    result) {
    result = sub(/^@/, "", text) ? "@@" : ""
    while (match(text, /\\.|""/)) {
        result = result substr(text, 1, RSTART - 1) "\\" substr(text, RSTART + 1, 1)
        text = substr(text, RSTART + 2)
    }
    return result text
}

# The line is NAME "text".
function readText(line,    name, begin) {
    match(line, /^[A-Za-z_0-9]+/)
    name = substr(line, 1, RLENGTH)
    if (!(name in idOf))
        return fail(name " is not defined in " ARGV[2])
    if (name in textOf)
        return fail(name " has a text in line " textLineOf[name] " already")
    begin = index(line, "\"") + 1
    names[++nameCount] = name
    textOf[name] = iniText(substr(line, begin, length(line) - begin))
    textLineOf[name] = FNR
}

FNR == 1 { sub(/^\357\273\277/, "") }

{ sub(/\r$/, "") }

FILENAME == ARGV[1] {
    module = $0
    sub(/\..*/, "", module)
}

FILENAME == ARGV[2] {
    line = trimmed(withoutComments($0))
    if (line == "" || line ~ /^#[ \t]*(if|ifdef|ifndef|elif|else|endif|pragma|include|undef)([^A-Za-z_0-9]|$)/)
        next
    if (line !~ /^#[ \t]*define[ \t]+[A-Za-z_][A-Za-z_0-9]*([ \t]|$)/ || !readDefine(line))
        fail("\"" $0 "\" is not #define NAME NUMBER")
}

FILENAME == ARGV[3] {
    line = trimmed($0)
    if (line == "" || line ~ /^\/\//)
        next
    if (line ~ /^[A-Za-z_][A-Za-z_0-9]*[ \t]*[,=]?[ \t]*"([^"\\]|""|\\["\\nrt])*"$/)
        readText(line)
    else
        fail("'" $0 "' is not NAME \"text\"")
}

END {
    if (failed)
        exit 1
    printf "" > "IDs"
    for (i = 1; i <= idCount; ++i)
        print ids[i] "=" nameOf[ids[i]] > "IDs"
    printf "" > "ST"
    for (i = 1; i <= nameCount; ++i)
        print names[i] "=\"" textOf[names[i]] "\"" > "ST"
    print "<RCC><qresource prefix=\"/" module "\">" > "tables.qrc"
    print "<file alias=\"" module "IDs\">IDs</file><file alias=\"" module "ST\">ST</file>" > "tables.qrc"
    print "</qresource></RCC>" > "tables.qrc"
}
