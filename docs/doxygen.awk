# SPDX-License-Identifier: MIT
# Doxygen's input filter: makes its comments of ours. The comment on top of a header describes the file. One comment
# stands for all declarations that follow it without a blank line, and the comment of a struct for its members too.
function emit_comment() { printf "%s", comment }

FNR == 1 { members = ""; print "/// \\file"; next }
/^ *$/ { comment = members; print; next }
/^};/ { members = "" }
/^ *\/\// {
    sub(/\/\//, "///")
    if (!in_comment)
        comment = ""
    in_comment = 1
    comment = comment $0 "\n"
    print
    next
}
{
    if (!in_comment && ended && comment != "" && $0 !~ /^ *[})]|^[^ ]*:|^#|^     /)
        emit_comment()
    in_comment = 0
    ended = /[;}] *(\/\/.*)?$/
    if ($0 ~ /^(template <.*> )?struct .*\{$/ && comment != "") {
        comment = members = "/// Described with the struct.\n"
        ended = 1
    }
    if ($0 ~ /[^ ] +\/\/ /)
        sub(/ \/\/ /, " ///< ")
    print
}
