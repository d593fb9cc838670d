#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"

class MXMLItem;

/// What can keep itself as one attribute of an XML item. The id is the attribute's name.
class MStorable : public MObject {
public:
    MStorable() = default;
    explicit MStorable(const MString& id) : id(id) {}

    [[nodiscard]] virtual const MString& GetId() const { return id; }
    virtual void SetId(const MString& newId) { id = newId; }

    [[nodiscard]] virtual MString ToStorageText() const;
    virtual void FromStorageText(const MString& text);
    virtual void ResetToDefault();
    /// Sets the attribute to the storage text. Returns true.
    virtual bool Save(MXMLItem& item) const;
    /// Takes the attribute, or the default if the item does not have it.
    virtual void Load(MXMLItem& item);

private:
    MString id;
};
