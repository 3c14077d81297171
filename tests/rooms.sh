#!/usr/bin/env bash
# Compares the #includes of every source file with the table of rooms in docs/architecture.md: who may include whom.
# Refuses circles too, of rooms in the table and of files: a file and its header count as one.
set -euo pipefail
cd "$(dirname "$0")/.."
find . \( -path ./build -o -path './.?*' \) -prune -o \
    \( -name '*.h' -o -name '*.cpp' -o -name '*.rc' \) -print | sed 's,^\./,,' | sort |
    awk '
    function fail(message) { print message; failed = 1 }

    function trim(text) { gsub(/^ +| +$/, "", text); return text }

    # Whether a name fits one of the patterns, which are separated by commas; * stands for anything.
    function matches(name, patterns,    list, i, n, pattern) {
        n = split(patterns, list, ",")
        for (i = 1; i <= n; ++i) {
            pattern = trim(list[i])
            gsub(/[.+]/, "[&]", pattern)
            gsub(/[*]/, ".*", pattern)
            if (name ~ ("^" pattern "$")) { return 1 }
        }
        return 0
    }

    # The row of a room, 0 for none.
    function row_of(name,    i) {
        for (i = 1; i <= row_count; ++i) {
            if (matches(name, room[i])) { return i }
        }
        return 0
    }

    # The innermost folder around a file that is a room.
    function room_of(file) {
        while (sub(/\/[^\/]*$/, "", file)) {
            if (row_of(file)) { return file }
        }
        return ""
    }

    # The table stands from the top down, so what a row names stands below it.
    function read_table(    line, cell, started, number, i, n, list, target) {
        while ((getline line < table) > 0 && !(started && line !~ /^\|/)) {
            ++number
            if (started && line !~ /^\|-/) {
                split(line, cell, "|")
                room[++row_count] = trim(cell[2]); may[row_count] = trim(cell[3])
                system_headers[row_count] = trim(cell[4]); line_of[row_count] = number
            }
            started = started || line ~ /^\| room \| may include \| system headers \|/
        }
        for (number = 1; number <= row_count; ++number) {
            n = split(may[number], list, ",")
            for (i = 1; i <= n; ++i) {
                target = trim(list[i])
                if (target != "*" && row_of(target ~ /[.]h$/ ? room_of(target) : target) <= number) {
                    fail(table ":" line_of[number] ": " target " does not stand below " room[number])
                }
            }
        }
        if (!row_count) { fail(table ": there is no table of rooms") }
    }

    # The file of the project that an include names, or nothing.
    function resolve(name, file) {
        sub(/[^\/]*$/, "", file)
        return name in known ? name : (file name) in known ? file name : \
            ("include/" name) in known ? "include/" name : \
            ("platform/include/" name) in known ? "platform/include/" name : ""
    }

    function unit_of(file) { sub(/[.][^.]*$/, "", file); return file }

    function check(file, line, name,    from, to, target, row) {
        from = room_of(file); row = row_of(from); target = resolve(name, file)
        if (target == "") {
            # Without a dot it is one of the standard library.
            if (name ~ /[.]|^FT_/ && !matches(name, system_headers[row])) {
                fail(file ":" line ": room " from " may not include <" name ">")
            }
            return
        }
        to = room_of(target)
        if (to != from && !matches(to, may[row]) && !matches(target, may[row])) {
            fail(file ":" line ": room " from " may not include " target)
        }
        from = unit_of(file); to = unit_of(target)
        if (from != to && !((from, to) in place)) {
            place[from, to] = file ":" line
            included[from] = included[from] " " to
        }
    }

    # Follows the includes; a unit met again on the way down closes a circle.
    function visit(unit, path,    list, i, n) {
        if (state[unit] == "done") { return }
        state[unit] = "open"
        path = path " " unit
        n = split(included[unit], list, " ")
        for (i = 1; i <= n; ++i) {
            if (state[list[i]] == "open") {
                fail(place[unit, list[i]] ": closes the circle" \
                     substr(path, index(path " ", " " list[i] " ")) " " list[i])
            }
            else { visit(list[i], path) }
        }
        state[unit] = "done"
    }

    BEGIN { table = "docs/architecture.md"; read_table() }

    { files[++file_count] = $0; known[$0] = 1 }

    END {
        for (f = 1; f <= file_count; ++f) {
            if (room_of(files[f]) == "") { fail(files[f] ":1: stands in no room of " table) }
            for (number = 1; (getline line < files[f]) > 0; ++number) {
                if (line ~ /^[ \t]*#[ \t]*include/) {
                    sub(/^[ \t]*#[ \t]*include[ \t]*["<]?/, "", line); sub(/[">].*/, "", line)
                    check(files[f], number, line)
                }
            }
            close(files[f])
        }
        for (f = 1; f <= file_count; ++f) { visit(unit_of(files[f]), "") }
        exit failed
    }'
