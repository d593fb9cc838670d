#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"
#include "foundation/values/MValue.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControl.h"

#include <map>
#include <memory>

/// Makes controls, their layouts and values from items of XML, by the names of elements. A document needs
/// nothing but an item whose sub-items are such elements:
///
///     element of a control = attributes { element }
///     element of a layout  = attributes { element }    whose controls it places, in their order
///
/// Names are compared ignoring case; elements without a known name are passed over, as those that a control
/// reads by itself. Which names there are says whoever puts a program together (`SetFiller`).
///
/// On the thread of the user interface.
class MControl::MXmlLoader final {
public:
    /// Makes what the elements of a name stand for.
    class Creator : public MObject {
    public:
        /// Below `owner`. Returns the control, null if it is none. Raises what is raised by
        /// `LoadFromXml` of what is made; that stays where it is.
        virtual MControl* Create(MControl& owner, MXMLItem& item, MXmlLoader& loader) const = 0;
    };

    /// A control of a class, with the attribute "id" as its name.
    template <class T>
    class Control final : public Creator {
    public:
        MControl* Create(MControl& owner, MXMLItem& item, MXmlLoader&) const override {
            auto* const control = new T(&owner, item.GetAttribute("id", MString()));
            control->LoadFromXml(item);
            return control;
        }
    };

    /// A layout of a class on the owner, and the controls that it places.
    template <class T>
    class Layout final : public Creator {
    public:
        MControl* Create(MControl& owner, MXMLItem& item, MXmlLoader& loader) const override {
            loader.LoadLayout(*new T(owner), owner, item);
            return nullptr;
        }
    };

    class ValueCreator : public MObject {
    public:
        [[nodiscard]] virtual std::unique_ptr<MValue> Create(MXMLItem& item) const = 0;
    };

    /// A value of a class, as the item defines it.
    template <class T>
    class Value final : public ValueCreator {
    public:
        [[nodiscard]] std::unique_ptr<MValue> Create(MXMLItem& item) const override {
            auto value = std::make_unique<T>();
            value->LoadDefinition(item);
            return value;
        }
    };

    /// The loader of the process, which `filler` gives its names at first use.
    [[nodiscard]] static MXmlLoader& Get();
    using Filler = void (*)(MXmlLoader& loader);
    /// Before the first document is loaded.
    static void SetFiller(Filler newFiller) { filler = newFiller; }

    MXmlLoader(const MXmlLoader&) = delete;
    MXmlLoader& operator=(const MXmlLoader&) = delete;

    /// The first one of a name, of an element or of a type, counts.
    void Add(const char* element, std::unique_ptr<Creator> creator);
    void AddValue(const char* type, std::unique_ptr<ValueCreator> creator);

    /// Makes what the sub-items stand for, below `owner`. Raises as `Creator::Create`.
    void Load(MXMLItem& item, MControl& owner);
    /// A value of the type that the attribute "type" names; null if there is no such type.
    [[nodiscard]] std::unique_ptr<MValue> LoadValue(MXMLItem& item) const;

private:
    struct IsBefore {
        bool operator()(const MString& left, const MString& right) const {
            return left.CompareNoCase(right) < 0;
        }
    };

    MXmlLoader() = default;
    /// The control of an element; null if it is none, or has no known name.
    MControl* LoadElement(MXMLItem& item, MControl& owner);
    void LoadLayout(MLayout& layout, MControl& owner, MXMLItem& item);

    static Filler filler;

    std::map<MString, std::unique_ptr<Creator>, IsBefore> creators;
    std::map<MString, std::unique_ptr<ValueCreator>, IsBefore> valueCreators;
};
