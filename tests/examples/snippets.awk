# SPDX-License-Identifier: MIT
# Makes a program of the C++ blocks of a document: those that include headers as they are, but for the name of main,
# each other one as a function, and a main that calls them in turn.
/^```cpp/ { inside = 1; body = ""; first = NR + 1; next }
/^```/ && inside {
    inside = 0
    location = "#line " first " \"" FILENAME "\"\n"
    if (sub(/\nint main\(\)/, "\nstatic void snippet_" (count + 1) "()", body))
        ++count
    if (body ~ /^#include/)
        printf "%s%s", location, body
    else
        printf "static void snippet_%d() {\n%s%s}\n", ++count, location, body
    next
}
inside { body = body $0 "\n" }
END {
    print "int main() {"
    for (i = 1; i <= count; ++i)
        printf "snippet_%d();\n", i
    print "}"
    if (count == 0)
        print "#error no blocks of C++"
}
