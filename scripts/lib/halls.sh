# A small product of halls, in versions 1.0 to 1.2, with the updates between them and a package. Sourced, never run; needs
# common.sh and wizard.sh, $port, where its update server is, and $installation, where it goes.

builder=$project_directory/build/linux/setup-builder

# write_version VERSION MONTH PRESETS
write_version() {
    local folder=$scratch/product/$1
    mkdir -p "$folder/core" "$folder/presets"
    echo "the same" >"$folder/core/same"
    echo "version $1" >"$folder/core/plug-in"
    echo "only here" >"$folder/core/only-$1"
    cp "$project_directory/examples/plugin-set/presets/$3"/* "$folder/presets/"
    write_definition "$folder" "$2" core presets ''
}

# write_definition FOLDER MONTH CORE PRESETS HALLS: empty paths bring nothing.
write_definition() {
    local path paths=()
    for path in "${@:3}"; do paths+=("${path:+path=\"$path\"}"); done
    cat >"$1/definition.xml" <<END
<install name="Halls" id="Halls" time="2026-$2-15 12:00:00" updateaddress="127.0.0.1:$port/halls">
    <directory id="destination" name="Destination" default="$root$installation">The product.</directory>
    <files required="1" ${paths[0]} destination="{destination}/Core"/>
    <files required="1" ${paths[1]} destination="{destination}/Presets" rewritable="0" uninstall="0"/>
    <files required="1" ${paths[2]} destination="{destination}/Halls"/>
    <onsuccess><info type="success"/></onsuccess><onerror><info type="error"/></onerror>
    <onabort><info type="abort"/></onabort>
</install>
END
}

# build_quietly WORD...
build_quietly() {
    quietly "$scratch/build.log" "$builder" "$@"
}

make_product() {
    write_version 1.0 01 1.0
    write_version 1.1 02 1.0
    write_version 1.2 03 2.0
    mkdir -p "$scratch/product/halls/halls" "$scratch/ready"
    echo "a hall" >"$scratch/product/halls/halls/hall"
    write_definition "$scratch/product/halls" 01 '' '' halls
    pack_installer Halls "$scratch/product/1.0/definition.xml"
    local version
    for version in 1.0 1.1 1.2; do
        build_quietly pack "$scratch/product/$version/definition.xml" --form dat --output "$scratch/$version.dat"
    done
    build_quietly update "$scratch/1.0.dat" "$scratch/1.1.dat" --output "$scratch/ready/Halls-1.1.dat" --name "Halls 1.1"
    build_quietly update "$scratch/1.1.dat" "$scratch/1.2.dat" --output "$scratch/ready/Halls-1.2.dat" --name "Halls 1.2"
    build_quietly package "$scratch/1.0.dat" "$scratch/product/halls/definition.xml" --output "$scratch/ready/More.dat" \
        --name "More halls" --time "2026-01-20 12:00:00"
}

# The first version, as a musician leaves it, who has changed one preset and made another.
begin_musician() {
    begin_user
    install_silently Halls
    change_presets
}

change_presets() {
    sed -i -e 's|maxx="2.4"|maxx="9.9"|' -e 's|<Directory Name="Halls">|&<preset name="My Cellar" maxx="1.5"/>|' \
        "$installation/Presets/Hallpresets.xml"
}

# expect_presets OLD|NEW: the musician's own, and each of the maker's; what both have changed stands in the backup, too.
expect_presets() {
    local name presets=$installation/Presets/Hallpresets.xml
    local names=(Default "My Cellar" "Small Room" "Wooden Room" "Tight Snare" "Room Microphones" "Concert Hall" Cathedral)
    [ "$1" = OLD ] || names+=("Glass Room" "Gated Toms" Forest Festival)
    for name in "${names[@]}"; do
        grep -q "name=\"$name\"" "$presets" || die "$step: the preset $name is lost"
    done
    grep -q 'maxx="9.9"' "$presets"* || die "$step: the preset that the musician has changed is lost"
}
