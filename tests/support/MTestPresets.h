#pragma once

#include "foundation/xml/MXMLItem.h"
#include "tests/support/MTestText.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// A preset file and its presets, in the order of the file, by their folders and names.
class MTestPresetFile {
public:
    explicit MTestPresetFile(const MString& path) {
        root.LoadFile(path);
        Collect(root, "");
    }

    [[nodiscard]] MXMLItem& GetRoot() { return root; }
    [[nodiscard]] const std::vector<std::pair<std::string, MXMLItem*>>& GetAll() const { return presets; }
    [[nodiscard]] MXMLItem& Get(const std::string& name) const {
        for (const auto& [path, preset] : presets)
            if (path == name) return *preset;
        throw std::out_of_range(name);
    }
    void Remove(const std::string& name) {
        MXMLItem& preset = Get(name);
        MXMLItem& parent = *preset.GetParent();
        int32_t index = 0;
        while (parent.GetSubItem(index) != &preset) ++index;
        parent.RemoveSubItem(index);
        presets.clear();
        Collect(root, "");
    }

private:
    void Collect(MXMLItem& level, const std::string& folder) {
        for (int32_t i = 0; i < level.GetSubItemCount(); ++i) {
            MXMLItem& item = *level.GetSubItem(i);
            if (item.GetName() == "Directory")
                Collect(item, folder + Text(item.GetAttribute("Name")) + "/");
            else
                presets.emplace_back(folder + Text(item.GetAttribute("name")), &item);
        }
    }

    MXMLItem root;
    std::vector<std::pair<std::string, MXMLItem*>> presets;
};
