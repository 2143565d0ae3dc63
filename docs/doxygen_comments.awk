# SPDX-License-Identifier: LicenseRef-Proprietary
# SPDX-FileCopyrightText: the vms_client_sdk developers

# Doxygen input filter for the public headers, which are commented with plain // for readers
# of the code. It hands Doxygen what each comment means:
#   - the first block of a file, before its namespace, describes the file;
#   - a block that starts a section (after a blank line or an access specifier) and opens with
#     a short title ("Gateway state.", "Streams. Each returns ...") names a group of the declarations that follow, up to the next title or the end of the
#     class or namespace; the rest of the block describes the group;
#   - another block directly above a declaration documents that declaration;
#   - a // after a member or an enumerator documents that member;
#   - everything else (licence lines, blocks before preprocessor lines) stays a comment.

function isComment(line) { return line ~ /^[ \t]*\/\// }
function isBlank(line) { return line ~ /^[ \t]*$/ }
function text(line) { sub(/^[ \t]*\/\/ ?/, "", line); return line }
function indent(line) { match(line, /^[ \t]*/); return substr(line, 1, RLENGTH) }
function nextCode(i) { while (i <= count && isBlank(lines[i])) i++; return i <= count ? lines[i] : "" }
# "Gateway state." or "Streams. Each ...": a short sentence that ends the line or is followed
# by another one. Sections of a class get longer titles ("Answers to requests that travel as
# gateway messages."); at namespace level a longer sentence documents a function.
function title(line,    first, limit) {
    first = text(line)
    if (!match(first, /^[^.:;,()]*\.( |$)/))
        return ""
    first = substr(first, 1, RLENGTH)
    sub(/ $/, "", first)
    limit = line ~ /^[ \t]/ ? 10 : 5
    return split(first, words, " ") <= limit ? first : ""
}
# A title opens a section: it follows a blank line or an access specifier, not a declaration.
function startsSection(line) {
    return isBlank(line) || line ~ /^[ \t]*(public|private|protected|Q_SIGNALS|signals):/
}
function closeGroup(at) {
    if (open) {
        print at "///@}"
        open = 0
    }
}

{ lines[++count] = $0 }

END {
    for (i = 1; i <= count; i++) {
        line = lines[i]
        if (line ~ /^namespace /)
            inNamespace = 1
        if (!isComment(line)) {
            if (line ~ /^[ \t]*(}|#|(public|private|protected|Q_SIGNALS|signals):)/)
                closeGroup(indent(line))
            # A member or enumerator with its comment behind it.
            if (match(line, /[;,][ \t]*\/\/ /))
                line = substr(line, 1, RSTART + RLENGTH - 4) "///< " substr(line, RSTART + RLENGTH)
            print line
            continue
        }
        first = i
        while (i + 1 <= count && isComment(lines[i + 1]))
            i++
        after = lines[i + 1]
        code = nextCode(i + 1)
        kind = "comment"
        if (lines[first] ~ /SPDX-/)
            kind = "comment"
        else if (!inNamespace && !fileDone && code ~ /^#/) {
            kind = "file"
            fileDone = 1
        } else if (inNamespace && startsSection(lines[first - 1]) &&
                   code !~ /^[ \t]*(}|#|struct |class |enum |using |template)/ &&
                   title(lines[first]) != "")
            kind = "group"
        else if (!isBlank(after) && after !~ /^[ \t]*(}|#)/)
            kind = "member"

        at = indent(lines[first])
        if (kind == "group") {
            closeGroup(at)
            rest = text(lines[first])
            heading = title(lines[first])
            rest = substr(rest, length(heading) + 2)
            print at "/// @name " heading
            if (rest != "")
                print at "/// " rest
            for (j = first + 1; j <= i; j++)
                print at "/// " text(lines[j])
            print at "///@{"
            open = 1
        } else if (kind == "file") {
            print "/// @file"
            for (j = first; j <= i; j++)
                print "/// " text(lines[j])
        } else {
            for (j = first; j <= i; j++) {
                line = lines[j]
                if (kind == "member")
                    sub(/\/\//, "///", line)
                print line
            }
        }
    }
    closeGroup("")
}
