#include "setup/choices/MSpaceNeeds.h"

#include "foundation/base/MAddSize.h"
#include "foundation/text/MByteSizeText.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MPathMacros.h"
#include "install/definition/MPlatformElement.h"
#include "install/definition/MTreeSize.h"

#include <algorithm>

namespace {

bool IsEnabled(const MXMLItem& element) {
    return element.GetInt32Attribute("enabled", 0) != 0;
}

MString FindDirectoryId(const MXMLItem& definition, const MString& destination) {
    MString first;
    int32_t firstPlace = MString::MaximumLength;
    for (const MXMLItem& directory : MXMLSubItems(definition, "directory")) {
        const MString id = directory.GetAttribute("id", "");
        const int32_t place = destination.Find(MPathMacros::GetKey(id));
        if (place == MString::NotFound || place >= firstPlace) continue;
        first = id;
        firstPlace = place;
    }
    return first;
}

}  // namespace

MString MDirectorySpace::GetText() const {
    const MString need = MByteSizeText(needed);
    return free ? MFormat(MTranslate("{0} needed, {1} free"), need, MByteSizeText(*free))
                : MFormat(MTranslate("{0} needed"), need);
}

MSpaceNeeds::MSpaceNeeds(const MXMLItem& definition) {
    for (const MXMLItem& files : MXMLSubItems(definition, "files")) {
        const int64_t bytes = MMeasureTree(files).bytes;
        const auto add = [&](const MXMLItem& pass) {
            passes.Add({&pass, FindDirectoryId(definition, pass.GetAttribute("destination", "")), bytes});
        };
        add(files);
        for (const MXMLItem& copy : MXMLSubItems(files, "copy"))
            if (MIsForThisPlatform(copy)) add(copy);
    }
}

template <class Condition>
int64_t MSpaceNeeds::Sum(Condition counts) const {
    int64_t sum = 0;
    for (const Pass& pass : passes)
        if (counts(pass)) MAddSize(sum, pass.bytes);
    return sum;
}

int64_t MSpaceNeeds::GetBytes(const MComponentRow& row) const {
    return Sum([&](const Pass& pass) {
        return std::find(row.elements.begin(), row.elements.end(), pass.element) != row.elements.end();
    });
}

int64_t MSpaceNeeds::GetTickedBytes(const MComponentRows& rows) const {
    int64_t sum = Sum([](const Pass& pass) { return pass.element->GetInt32Attribute("required", 0) != 0; });
    for (int32_t i = 0; i < rows.GetCount(); ++i)
        if (rows.GetRow(i).checked) MAddSize(sum, GetBytes(rows.GetRow(i)));
    return sum;
}

int64_t MSpaceNeeds::GetEnabledBytes(const MString& directoryId) const {
    return Sum([&](const Pass& pass) { return pass.directoryId == directoryId && IsEnabled(*pass.element); });
}

MList<MDirectorySpace> MSpaceNeeds::Compare(const MList<MDirectoryFacts>& directories) const {
    MList<MDirectorySpace> spaces;
    for (const auto& [id, facts] : directories)
        spaces.Add({id, GetEnabledBytes(id), facts.volume.freeBytes, true});
    for (int32_t i = 0; i < spaces.GetCount(); ++i) {
        const MVolume& volume = directories[i].facts.volume;
        int64_t needed = 0;
        for (int32_t k = 0; k < spaces.GetCount(); ++k)
            if (k == i || (!volume.name.IsEmpty() && volume.name.IsExactly(directories[k].facts.volume.name)))
                MAddSize(needed, spaces[k].needed);
        spaces[i].isSufficient = !volume.freeBytes || needed <= *volume.freeBytes;
    }
    return spaces;
}
