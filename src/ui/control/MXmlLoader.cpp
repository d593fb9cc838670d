#include "ui/control/MXmlLoader.h"

#include <utility>

MControl::MXmlLoader::Filler MControl::MXmlLoader::filler = nullptr;

MControl::MXmlLoader& MControl::MXmlLoader::Get() {
    static MXmlLoader loader;
    if (const Filler fill = std::exchange(filler, nullptr)) fill(loader);
    return loader;
}

void MControl::MXmlLoader::Add(const char* element, std::unique_ptr<Creator> creator) {
    creators.try_emplace(element, std::move(creator));
}

void MControl::MXmlLoader::AddValue(const char* type, std::unique_ptr<ValueCreator> creator) {
    valueCreators.try_emplace(type, std::move(creator));
}

MControl* MControl::MXmlLoader::LoadElement(MXMLItem& item, MControl& owner) {
    const auto creator = creators.find(item.GetName());
    return creator == creators.end() ? nullptr : creator->second->Create(owner, item, *this);
}

void MControl::MXmlLoader::Load(MXMLItem& item, MControl& owner) {
    for (MXMLItem* sub : item.GetSubItems()) LoadElement(*sub, owner);
}

void MControl::MXmlLoader::LoadLayout(MLayout& layout, MControl& owner, MXMLItem& item) {
    layout.LoadFromXml(item);
    for (MXMLItem* sub : item.GetSubItems()) {
        MControl* const control = LoadElement(*sub, owner);
        if (!control) continue;
        layout.Add(*control);
        layout.LoadControlParameters(*control, *sub);
    }
}

std::unique_ptr<MValue> MControl::MXmlLoader::LoadValue(MXMLItem& item) const {
    const auto creator = valueCreators.find(item.GetAttribute("type", MString()));
    return creator == valueCreators.end() ? nullptr : creator->second->Create(item);
}
