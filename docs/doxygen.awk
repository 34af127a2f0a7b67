# SPDX-License-Identifier: MIT
# Doxygen's input filter: makes its comments of ours. The comment on top of a header describes the file, and one
# comment stands for all declarations that follow it without a blank line.
function emit_comment() { printf "%s", comment }

FNR == 1 { print "/// \\file"; next }
/^ *$/ { comment = ""; print; next }
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
    if (!in_comment && ended && comment != "" && $0 !~ /^ *[})]|^[^ ]*:|^#/)
        emit_comment()
    in_comment = 0
    ended = /[;}] *(\/\/.*)?$/
    if ($0 ~ /[^ ] +\/\/ /)
        sub(/ \/\/ /, " ///< ")
    print
}
