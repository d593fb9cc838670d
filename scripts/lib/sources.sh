# Lists the project's C++ files. Sourced, never run; needs common.sh.

# Every C++ file below the given folders, or below all that hold code.
cpp_files() {
    local folders=("$@")
    [ ${#folders[@]} != 0 ] || folders=(src tests bench fuzz examples)
    (cd "$project_directory" && find "${folders[@]}" -name '*.cpp' -o -name '*.h' | sort)
}

# The C++ files that differ from the given revision, new ones too.
changed_cpp_files() {
    (
        cd "$project_directory"
        git diff --name-only --diff-filter=d "$1" -- '*.cpp' '*.h'
        git ls-files --others --exclude-standard -- '*.cpp' '*.h'
    ) | sort -u
}
