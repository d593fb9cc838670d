# Reading and fetching from the machine's own Debian archive. Sourced, never run.

debian_codename() {
    (. /etc/os-release && printf '%s\n' "$VERSION_CODENAME")
}

# debian_sources TYPE [RELEASE]: prints the machine's Debian entries as deb822 stanzas of the given type (deb or
# deb-src), without the security suites, whose indexes may be out of step between architectures, and without foreign
# archives. With RELEASE the same archive's entries of that older release, without its updates, which cease one day.
debian_sources() {
    local type=$1 release=${2-} codename
    codename=$(debian_codename)
    {
        cat_with_blank_lines /etc/apt/sources.list /etc/apt/sources.list.d/*.list | one_line_entries_as_stanzas
        cat_with_blank_lines /etc/apt/sources.list.d/*.sources
    } | awk -v type="$type" -v codename="$codename" -v release="$release" '
        BEGIN { RS = ""; FS = "\n" }
        {
            suites = ""; rest = ""
            for (i = 1; i <= NF; i++) {
                if ($i ~ /^#/ || $i ~ /^(Types|Architectures):/)
                    continue
                if ($i !~ /^Suites:/) {
                    rest = rest $i "\n"
                    continue
                }
                count = split(substr($i, 8), words, /[ \t]+/)
                for (w = 1; w <= count; w++)
                    if (release != "" && words[w] == codename)
                        suites = suites " " release
                    else if (release == "" && (words[w] == codename || words[w] == codename "-updates"))
                        suites = suites " " words[w]
            }
            if (suites != "")
                printf "Types: %s\nSuites:%s\n%s\n", type, suites, rest
        }'
}

cat_with_blank_lines() {
    local file
    for file in "$@"; do
        if [ -f "$file" ]; then
            cat "$file"
            echo
        fi
    done
}

# deb [signed-by=KEY] URI SUITE COMPONENT... becomes a stanza of its own.
one_line_entries_as_stanzas() {
    sed -n -E \
        -e 's/^deb +(\[[^]]*\] +)?([^ ]+) +([^ ]+) +(.*)$/URIs: \2\nSuites: \3\nComponents: \4\n\1/p' |
        sed -E -e 's/^\[.*signed-by=([^] ]+).*\] *$/Signed-By: \1\n/' -e 's/^\[.*\] *$//'
}

# private_apt TYPE FOLDER [RELEASE]: sets apt_options so that apt-get reads only those entries, with lists and state of
# their own below the folder: nothing of the machine's set-up changes, and root is not needed. The packages of another
# RELEASE are taken as if none were installed.
private_apt() {
    local type=$1 folder=$2 release=${3-}
    mkdir -p "$folder/sources" "$folder/lists/partial" "$folder/archives/partial"
    debian_sources "$type" "$release" >"$folder/sources/debian.sources"
    [ -s "$folder/sources/debian.sources" ] || die "the machine's apt sources name no Debian archive"
    apt_options=(
        -q -o "Dir::Etc::sourcelist=/dev/null" -o "Dir::Etc::sourceparts=$folder/sources"
        -o "Dir::State::lists=$folder/lists" -o "Dir::Cache=$folder" -o "Dir::Cache::archives=$folder/archives"
        -o "Debug::NoLocking=1" -o "APT::Sandbox::User=" -o "APT::Architectures=$(dpkg --print-architecture)"
    )
    apt_options+=(-o "Acquire::Retries=3")
    if [ -n "$release" ]; then
        : >"$folder/status"
        apt_options+=(-o "Dir::State::status=$folder/status")
    fi
}
