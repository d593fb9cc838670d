#include "foundation/files/MFile.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestModule.h"
#include "tests/ui/style/StyleFixture.h"

namespace {

/// Mark-up with " for each '.
std::string Quoted(std::string text) {
    std::ranges::replace(text, '\'', '"');
    return text;
}

/// A style of a document of its own: `classes` are the elements of classes, `head` the attributes of the root
/// and `pictures` the items, all of which are one green pixel.
std::unique_ptr<MResourceLibrary> MakeLibrary(const std::string& classes, const std::string& head = "",
                                              const std::string& colors = "<colors/>",
                                              const std::string& pictures = "") {
    MBitmap pixel;
    pixel.CreateOpaque(1, 1);
    pixel.ChangeColors([](MColor) { return MColor::FromRGB(0, 200, 0); });
    MMemoryStream data;
    pixel.SavePNG(data);
    const std::string resources = pictures.empty() ? "<resources/>"
                                                   : "<resources><resource" + pictures + " id=\"" + pictures +
                                                         "\" offset=\"0\" size=\"" +
                                                         std::to_string(data.GetSize()) + "\"/></resources>";
    const std::string text = Quoted("<mstyle " + head + ">" + resources + colors + classes + "</mstyle>");
    MMemoryStream document(text.data(), static_cast<int32_t>(text.size()));
    MXMLItem root;
    root.Load(document);
    auto library = std::make_unique<MResourceLibrary>();
    library->Assign(root, data.GetBuffer());
    return library;
}

/// Definitions are taken by a style that has fonts.
class DefinitionTest : public StyleTest {
protected:
    ~DefinitionTest() noexcept override = default;

    void Define(const std::string& classes, const std::string& colors = "<colors/>",
                const std::string& head = "") {
        const std::unique_ptr<MResourceLibrary> library = MakeLibrary(classes, head, colors);
        style.LoadDefinition(library->GetRoot());
    }
    /// The colour in the middle of a button; the ground is black.
    MColor PaintButton(int32_t state, MPoint size = {30, 20}) {
        PosedControl button(MControlType::Panel, size, state);
        Canvas canvas(size, MColor::FromRGB(0, 0, 0));
        Paint(canvas, button, {}, [&](MDrawer& drawer) { style.PaintControl(button, drawer); });
        return canvas.At(size.x / 2, size.y / 2);
    }
    static int32_t GetRed(MColor color) { return color.red; }
};

TEST_F(DefinitionTest, StatesWithoutPicturesShowTheLikestOne) {
    Define("<panel><image disabledalpha='0'><normal color='280000FF'/><focused color='500000FF'/>"
           "<clicked color='780000FF'/></image></panel>");
    struct Row {
        int32_t state;
        int32_t red;
    };
    for (const auto& [state, red] : {Row{MDrawEnabled, 0x28},
                                     {MDrawEnabled | MDrawHighlighted, 0x28},
                                     {MDrawEnabled | MDrawFocused, 0x50},
                                     {MDrawEnabled | MDrawFocused | MDrawHighlighted, 0x50},
                                     {MDrawEnabled | MDrawClicked | MDrawHighlighted, 0x78},
                                     {MDrawDisabled, 0}})
        EXPECT_NEAR(PaintButton(state).red, red, 1) << state;
    // The alpha is that of the state, else that of the picture.
    Define("<panel><image normalalpha='128' hlalpha='0'><normal color='C80000FF'/></image></panel>");
    EXPECT_EQ(PaintButton(MDrawEnabled | MDrawHighlighted).red, 0);
    EXPECT_NEAR(PaintButton(MDrawDisabled).red, 100, 1);
}

TEST_F(DefinitionTest, PartsAreWhereTheyBelong) {
    const std::string red = "<normal color='C80000FF' width='8' height='8'/></";
    struct Row {
        MControlType type;
        std::string classes;  ///< with "RED" and the end of an element in the place of a red part
        MPoint place;
    };
    using enum MControlType;
    const Row rows[] = {
        {Knob, "<knob selectorratio='100'><selector>RED selector></knob>", {29, 6}},
        {Knob,
         "<knob enablepointer='0' enablevaluebutton='1' valuebuttonoffsety='10'><valuebutton>RED valuebutton></knob>",
         {29, 43}},
        {Tracker,
         "<tracker><selector><normal color='00C800FF' width='8'/></selector><selectoroverlay>RED selectoroverlay></tracker>",
         {29, 29}},
        {Tracker, "<tracker enablepointer='1' resizepointery='1'><pointer>RED pointer></tracker>", {29, 1}},
        {Tracker, "<tracker bordersize='2' valuebordersize='40'><on>RED on></tracker>", {10, 12}},
        {ProgressBar, "<progressbar><locatordark>RED locatordark></progressbar>", {20, 20}},
        {CheckBox, "<radiobutton><off>RED off></radiobutton>", {20, 20}},
        {ListBox, "<listcontrol><selector>RED selector></listcontrol>", {20, 20}}};
    for (const auto& [type, classes, place] : rows) {
        std::string text = classes;
        Define(text.replace(text.find("RED "), 4, red));
        PosedControl control(type, {60, 60}, MDrawEnabled | MDrawFocused);
        const MRect& rect = control.windowRect;
        Canvas canvas({60, 60}, MColor::FromRGB(0, 0, 0));
        Paint(canvas, control, {}, [&](MDrawer& drawer) {
            style.PaintValue(control, drawer, rect, {0.5, 0, {}, MDrawEnabled});
            style.PaintCheckMark(control, drawer, rect, MCheckMarkShape::RadioButton, 2, MDrawEnabled);
            style.PaintListItem(control, drawer, rect, control.state);
        });
        EXPECT_NEAR(canvas.At(place.x, place.y).red, 199, 2) << classes;
    }
}

TEST_F(DefinitionTest, LayersLieOverEachOtherAndStatesGrowFromOthers) {
    Define("<panel><image normalalpha='128'><normal color='C80000FF'><layer color='0000C8FF' alpha='128'/>"
           "</normal><focused like='normal'><layer color='00C800FF' outset='-8'/></focused></image></panel>");
    // 128 of 255 of a mixture of both colours.
    EXPECT_NEAR(PaintButton(MDrawEnabled).red, 50, 2);
    EXPECT_NEAR(PaintButton(MDrawEnabled).blue, 50, 2);
    EXPECT_NEAR(PaintButton(MDrawEnabled | MDrawFocused).green, 199, 1);
    // Like itself, and like what is not there.
    Define("<panel><image like='panel'><normal color='C80000FF'/></image></panel>"
           "<edit like='edit'><image like='nothing'/></edit>");
    EXPECT_NEAR(PaintButton(MDrawEnabled).red, 199, 1);
}

TEST_F(DefinitionTest, ColorsFollowMainColorsAndTheInversion) {
    const char* const head = "MainColor0='0000FFFF' MainColor3='00FF00FF'";
    const char* const colors = "<colors><mine color='404040FF' changecolortomain0='255' inverted='102030FF'/>"
                               "<plain color='300000FF'/></colors>";
    struct Row {
        const char* image;
        MColor dark;
        MColor light;
    };
    // Greys take the hue of a main colour and keep their lightness, which the light look turns round.
    const Row rows[] = {
        {"color='404040FF'", MColor::FromRGB(64, 64, 64), MColor::FromRGB(191, 191, 191)},
        {"color='404040FF' changecolortomain0='255'", MColor::FromRGB(0, 0, 128),
         MColor::FromRGB(127, 127, 255)},
        {"color='404040FF' changecolortomain3='128'", MColor::FromRGB(32, 96, 32),
         MColor::FromRGB(159, 223, 159)},
        {"color='404040FF' inversion='0'", MColor::FromRGB(64, 64, 64), MColor::FromRGB(64, 64, 64)},
        {"color='mine'", MColor::FromRGB(0, 0, 128), MColor::FromRGB(0, 0, 64)},
        {"color='plain'", MColor::FromRGB(48, 0, 0), MColor::FromRGB(255, 207, 207)},
        {"rectanglecolor='404040FF' changerectcolortomain3='255'", MColor::FromRGB(0, 128, 0),
         MColor::FromRGB(127, 255, 127)}};
    for (const Row& row : rows) {
        const std::string classes = std::string("<panel><image><normal ") + row.image + "/></image></panel>";
        for (const bool isLight : {false, true}) {
            Define(classes, colors, head);
            MStyleSettings settings = style.GetSettings();
            settings.invertColors = isLight;
            style.SetSettings(settings);
            const MColor expected = isLight ? row.light : row.dark;
            const MColor shown = PaintButton(MDrawEnabled);
            EXPECT_NEAR(shown.red, expected.red, 2) << row.image << isLight;
            EXPECT_NEAR(shown.green, expected.green, 2) << row.image << isLight;
            EXPECT_NEAR(shown.blue, expected.blue, 2) << row.image << isLight;
        }
    }
}

TEST_F(DefinitionTest, ColorsAreChangedInTheOrderOfTheDocument) {
    // Black at first brighter and then without contrast is grey; the other way round it is brighter than grey.
    const std::string brighter = "<changebrightness value='60'/>";
    const std::string grey = "<changecontrast value='-255'/>";
    for (const bool isGreyLast : {true, false}) {
        Define("<panel><image><normal color='000000FF'>" + (isGreyLast ? brighter + grey : grey + brighter) +
               "</normal></image></panel>");
        EXPECT_NEAR(PaintButton(MDrawEnabled).red, isGreyLast ? 127 : 187, 1);
    }
}

TEST_F(DefinitionTest, HostileNumbersCostNeitherMemoryNorTime) {
    const char* const images[] = {
        "color='FF0000FF' cornersize='2000000000' linewidth='2000000000' outset='2000000000'",
        "color='FF0000FF' cornersize='-5' linewidth='-5' outset='-2147483648' ofsx='2147483647'",
        "rectanglecolor='FF0000FF' rectangleborderx='2147483647' rectangleofsy='-2147483648'",
        "type='circle' color='FF0000FF' linewidth='99999999' width='2147483647' height='-1'",
        ("color='FF0000FF' gradient='00FF00FF' gradienttype='Horizontal double' cornertype='Triangle exterior' "
         "cornersize='999999'"),
        "color='FF0000FF' alpha='-7' op='IncContrast' corners='top' edge='left' unknown='1'"};
    for (const char* image : images) {
        Define(
            std::string("<panel><image borderx='2147483647' bordery='-2147483648' focusborder='2147483647' "
                        "normalalpha='999'><normal ") +
            image + "/></image></panel>");
        for (const MPoint size : {MPoint{1, 1}, {30, 20}, {3000, 2}, {2, 3000}})
            (void)PaintButton(MDrawEnabled, size);
    }
    Define(
        "<panel><image><normal color='000000FF'><changebrightness value='nan'/><changecontrast value='-inf'/>"
        "</normal></image></panel>",
        "<colors disabledalpha='nan'/><fonts><normal height='nan'/></fonts>");
    EXPECT_NEAR(PaintButton(MDrawEnabled).red, 127, 1) << "what is no number is 0";
}

TEST_F(DefinitionTest, WhatCannotBeUnderstoodIsRefused) {
    EXPECT_EQ(FailureOf([&] { Define("<panel/>", "<colors red='green'/>"); }),
              "0: Invalid color to parse (green).");
    EXPECT_EQ(FailureOf([&] { Define("<menu><item><hl color='gren'/></item></menu>"); }),
              "0: Invalid color to parse (gren).");
    MXMLItem other("style");
    EXPECT_EQ(FailureOf([&] { style.LoadDefinition(other); }),
              "0: Invalid style definition, the root is \"style\".");
    MTexturedStyle fresh(nullptr, &GetProgramStyle(), MTexturedStyle::FontSource::Traveling);
    PosedControl button(MControlType::Button, {10, 10}, MDrawEnabled);
    EXPECT_EQ(FailureOf([&] { (void)fresh.GetMinimalSize(button); }),
              "0: Style resources have not been loaded.");
    const auto noFonts = MakeLibrary("<panel/>");
    MTexturedStyle mute(nullptr, noFonts.get(), MTexturedStyle::FontSource::Traveling);
    EXPECT_EQ(FailureOf([&] { mute.LoadDefinition(noFonts->GetRoot()); }),
              "0: No fonts are available on the system.");
}

TEST_F(DefinitionTest, PicturesTakeTheirPlaceAndGeneratedImagesThatOfMissingOnes) {
    const std::string classes =
        "<panel><image><normal color='C80000FF'><image id='green'/></normal></image></panel>";
    const auto withPicture = MakeLibrary(classes, "", "<colors/>", "green");
    const auto without = MakeLibrary(classes);
    for (const MResourceLibrary* library : {withPicture.get(), without.get()}) {
        const MStyleColors colors = style.GetColors();
        MXMLItem item;
        item.CopyFrom(
            *const_cast<MResourceLibrary*>(library)->GetRoot().GetSubItem("panel")->GetSubItem("image"));
        ControlStyle look;
        look.Load(item, item);
        Canvas canvas({40, 30}, MColor::FromRGB(0, 0, 0));
        canvas.Draw([&](MDrawer& drawer) {
            look.Paint(drawer, {0, 0, 39, 29}, MDrawEnabled, {*library, colors, {100, 100}, 0});
        });
        const MColor expected =
            library == without.get() ? MColor::FromRGB(199, 0, 0) : MColor::FromRGB(0, 199, 0);
        EXPECT_EQ(canvas.At(1, 1), expected);
        EXPECT_EQ(canvas.At(38, 28), expected);
    }
}

/// Style files in the shared data directory of a scratch machine.
class StyleFilesTest : public testing::Test {
protected:
    ~StyleFilesTest() noexcept override = default;

    void WriteStyle(const char* name, const MResourceLibrary& library) {
        MMemoryStream blob;
        library.Save(blob);
        WriteStyle(name, {static_cast<const char*>(blob.GetBuffer().GetBlock()),
                          static_cast<size_t>(blob.GetSize())});
    }
    void WriteStyle(const char* name, std::string_view bytes) {
        MWriteTestFile(MFile::Join(folders.GetPath(MSpecialFolderData), MString("MTexturedStyles/") + name),
                       bytes);
    }
    void WriteSettings(const char* attributes) {
        MWriteTestFile(MFile::Join(folders.GetPath(MSpecialFolderUserData), "StyleSettings.cfg"),
                       Quoted(std::string("<StyleSettings ") + attributes + "/>"));
    }

    MScratch scratch;
    MScratchFolders folders{scratch};
    MTestModule module{"/program"};
};

TEST_F(StyleFilesTest, TheChosenStyleIsTakenElseTheDefaultElseAny) {
    const auto whole = MakeLibrary("<panel/>", "deflayoutspace='5'");
    WriteStyle("Mine.mstyle", *whole);
    WriteStyle("Damaged.mstyle", std::string_view("no style at all"));
    WriteStyle("Colorless.mstyle", *MakeLibrary("<panel/>", "MainColor0='none'"));
    WriteStyle("readme.txt", std::string_view("text"));
    using Source = MTexturedStyle::FontSource;
    const auto choose = [&](const char* attributes, MResourceLibrary* builtIn) {
        WriteSettings(attributes);
        MTexturedStyle style(nullptr, builtIn, Source::System);
        const std::string failure = FailureOf([&] { style.LoadStyle(); });
        return failure + " " + Text(style.GetName()) + " " + std::to_string(style.GetMetric(4));
    };
    MResourceLibrary& program = GetProgramStyle();
    EXPECT_EQ(choose("Style='Mine'", &program), "none Mine 5");
    for (const char* bad : {"Style='Damaged'", "Style='Colorless'", "Style='Missing'", "", "Style='../Mine'"})
        EXPECT_EQ(choose(bad, &program), "none Default 1") << bad;
    MMemoryStream face;
    program.GetResource("face_regular").Open().CopyAllTo(face);
    MXMLItem faces("faces");
    MXMLItem& item = *faces.AddSubItem("resources")->AddSubItem("resourceface_regular");
    item.SetAttribute("id", "face_regular");
    item.SetAttribute("offset", 0);
    item.SetAttribute("size", face.GetSize());
    MResourceLibrary noDefinition;
    noDefinition.Assign(faces, face.GetBuffer());
    EXPECT_EQ(choose("Style='Missing'", &noDefinition), "none Mine 5");

    MTexturedStyle style(nullptr, &program, Source::Traveling);
    MString names;
    for (const MString& name : style.ListStyles()) names += name + " ";
    EXPECT_EQ(Text(names), "Colorless Damaged Default Mine ");

    MFile::DeleteTree(MFile::Join(folders.GetPath(MSpecialFolderData), "MTexturedStyles"));
    MTexturedStyle none(nullptr, nullptr, Source::System);
    EXPECT_EQ(FailureOf([&] { none.LoadStyle(); }),
              "0: No styles are available. Please reinstall the software.");
}

TEST_F(StyleFilesTest, SettingsComeBackAndAreLimited) {
    WriteSettings("ResizeX='170' ResizeY='90000' InvertColors='1' EnableUpperCase='1' SetDefaultColors='0' "
                  "MainColor='FF102030' MainColor3='broken'");
    MTexturedStyle style(nullptr, &GetProgramStyle(), MTexturedStyle::FontSource::Traveling);
    style.LoadStyle();
    EXPECT_EQ(style.GetScale(), (MStyleScale{170, 400}));
    EXPECT_TRUE(style.GetColors().IsInverted());
    EXPECT_EQ(style.GetColors().GetMainColors(), style.GetColors().GetDefaultColors());
    PosedControl button(MControlType::Button, {}, MDrawEnabled);
    EXPECT_EQ(Text(style.TransformCaption(button, "Next >")), "NEXT >");

    MStyleSettings changed = style.GetSettings();
    changed.setDefaultColors = false;
    changed.mainColors[0] = MColor::FromRGB(0x80, 0, 0);
    style.SetSettings(changed);
    MXMLItem saved("StyleSettings");
    style.SaveToSettings(saved);
    EXPECT_EQ(Text(saved.GetAttribute("MainColor")), "FF800000");
    MStyleSettings loaded;
    loaded.Load(saved);
    EXPECT_EQ(loaded.mainColors, changed.mainColors);
    EXPECT_EQ(loaded.resizeX, 170);
    EXPECT_EQ(loaded.invertColors, true);
    const MColor ground = style.GetColors().Get(MStyleTone::Ground);
    EXPECT_GT(ground.red, ground.blue);
}

}  // namespace
