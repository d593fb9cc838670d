#include "tests/setup/WizardFixture.h"

/// Products that are unlike most, each installed by a user who changes nothing.
class OddProductTest : public WizardTest {
protected:
    struct Product {
        std::string children;
        std::string pages;  ///< that come
        std::string attributes = "";
        std::string success = "<info type=\"success\"/>";
    };

    /// So many parts, of which each brings a file.
    std::string Parts(int32_t count, const std::string& attributes = "",
                      const std::string& to = "{destination}") {
        std::string parts = Directory("destination", "{scratch}/product");
        for (int32_t i = 1; i <= count; ++i) {
            const std::string name = "part " + std::to_string(i);
            parts += "<files name=\"" + name + "\" destination=\"" + to + "/x\" " + attributes +
                     ">What the " + name + " is for.<file name=\"" + name + "\"" + payload.Add(name) +
                     "/></files>";
        }
        return parts;
    }
    static std::string Directory(const std::string& id, const std::string& path,
                                 const char* attributes = "") {
        return "<directory id=\"" + id + "\" name=\"" + id + "\" default=\"" + path + "\" " + attributes +
               "/>";
    }
    static std::string Configurations(std::initializer_list<const char*> ids, const char* attributes = "") {
        std::string text;
        for (const std::string id : ids)
            text += "<configuration id=\"" + id + "\" name=\"" + id + "\" " + attributes + ">For " + id +
                    "</configuration>";
        return text;
    }
    std::string Picture(const char* element, const std::string& bytes) {
        return "<" + std::string(element) + payload.Add(bytes) + "/>";
    }
    std::string Licence(const std::string& text) { return "<licence" + payload.Add(text) + "/>"; }

    /// Goes through the wizard; gives the pages that come.
    std::string Walk() {
        std::string pages;
        (void)Run([&] {
            for (; Find(*system.GetActiveRoot(), "Next"); Click("Next")) {
                if (Find(*system.GetActiveRoot(), "licenceagree")) Click("licenceagree");
                pages += DescribePage();
            }
            pages += DescribePage();
            Click("Exit");
        });
        return pages;
    }
    /// Its name, and how the parts are shown. The window has to be on the screen, and the buttons in it.
    std::string DescribePage() {
        MControl& root = *system.GetActiveRoot();
        const std::string page = GetPage();
        EXPECT_LE(root.GetShownSize().x, 1280) << page;
        EXPECT_LE(root.GetShownSize().y, 720) << page;
        const MPoint corner = Get("Exit").GetWindowPoint(Get("Exit").size);
        EXPECT_LE(corner.x, root.GetShownSize().x) << page;
        EXPECT_LE(corner.y, root.GetShownSize().y) << page;
        return page + (Find(root, "CheckBox0") ? "(boxes) " : Find(root, "componentpanel") ? "(list) " : " ");
    }
    void Expect(const std::function<Product()>& make) {
        const auto define = [&] {
            payload = MTestPayload(7);
            const Product product = make();
            Define(product.children, product.attributes,
                   "<onsuccess>" + product.success + "</onsuccess><onerror/><onabort/>");
            return product.pages;
        };
        const std::string pages = define();
        const MTreeSnapshot before = Look();
        EXPECT_EQ(Walk(), pages + "onsuccess ");
        const MTreeSnapshot byWizard = Look();
        before.Restore();
        (void)define();
        InstallSilently();
        EXPECT_EQ(byWizard.DescribeChanges(Look()), "");
        EXPECT_NE(before.DescribeChanges(byWizard), "");
        before.Restore();
    }
};

TEST_F(OddProductTest, IsInstalledAsTheSilentRunInstallsIt) {
    system.SetWorkAreas({{0, 0, 1279, 719}});
    folders.SetPath(MSpecialFolderProgramFiles, scratch.Join("Program Files (x86)"));
    const std::string choices = "components(boxes) directories ";
    const std::string tongues =
        "P\xC5\x99\xC3\xADli\xC5\xA1 \xC5\xBElu\xC5\xA5ou\xC4\x8Dk\xC3\xBD \xCE\x95\xCE\xBB\xCE\xBB\xCE\xB7\xCE\xBD\xCE\xB9\xCE\xBA\xCE\xAC "
        "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xD8\xB3\xD9\x84\xD8\xA7\xD9\x85 \xF0\x9F\x8E\xB9";
    const std::string longName(80, 'W');
    const std::pair<const char*, std::function<Product()>> products[] = {
        {"eight parts",
         [&] {
             return Product{Parts(8), choices};
         }},
        {"nine",
         [&] {
             return Product{Parts(9), "components(list) directories "};
         }},
        {"a hundred",
         [&] {
             return Product{Parts(100), "components(list) directories "};
         }},
        {"none",
         [&] {
             return Product{Parts(1, "required=\"1\""), "components directories "};
         }},
        {"one kind",
         [&] {
             return Product{Configurations({"a"}) + Parts(2), choices};
         }},
        {"three kinds, of which the first has not all",
         [&] {
             return Product{Configurations({"a", "b", "c"}) + Parts(2) + Parts(1, "configurations=\"c,b\""),
                            "configuration " + choices};
         }},
        {"a kind without choices",
         [&] {
             return Product{Configurations({"a"}, "setup=\"0\"") + Parts(2), "directories "};
         }},
        {"only for 64 bits",
         [&] {
             return Product{Configurations({"wide"}, "x64=\"1\"") +
                                Directory("own", "{programfiles64}/Own", "x64=\"1\"") +
                                Directory("both", "{programfiles}/Both") + Parts(1, "", "{both}") +
                                Parts(1, "required=\"1\"", "{programfiles64}/Wide"),
                            choices};
         }},
        {"hidden directories",
         [&] {
             return Product{
                 Directory("hidden", "{scratch}/hidden", "Hidden=\"1\"") + Parts(1, "", "{hidden}"), choices};
         }},
        {"programs before, between and after",
         [&] {
             return Product{"<onstart>" + Execute("one") + "<info>A</info>" + Execute("two") + "<info/>" +
                                Execute("three") + "</onstart>" + Parts(1),
                            "onstart onstart " + choices, "", "<info/>" + Execute("four")};
         }},
        {"programs and no text",
         [&] {
             return Product{"<onstart>" + Execute("one") + "</onstart>" + Parts(1), choices};
         }},
        {"a long agreement",
         [&] {
             std::string text;
             while (text.size() < 300000)
                 text += "Line of the agreement " + std::to_string(text.size()) + ".\r\n";
             return Product{Licence(text) + Parts(1), "licence " + choices};
         }},
        {"agreements of odd bytes",
         [&] {
             return Product{Licence(std::string("a\0b\xFF\xFE\x01", 6)) + Parts(1), "licence " + choices};
         }},
        {"an empty agreement",
         [&] {
             return Product{Licence("") + Parts(1), "licence " + choices};
         }},
        {"many tongues",
         [&] {
             return Product{"<onstart><info title=\"" + tongues + "\">" + tongues + "</info></onstart>" +
                                Licence(tongues) + Configurations({"a", tongues.c_str()}) +
                                Directory(tongues, "{scratch}/" + tongues) + "<files name=\"" + tongues +
                                "\" destination=\"{" + tongues + "}\">" + tongues + "<file name=\"" +
                                tongues + "\"" + payload.Add("x") + "/></files>",
                            "onstart licence configuration " + choices, "exitconfirm=\"" + tongues + "\""};
         }},
        {"a long name",
         [&] {
             return Product{"<onstart><info type=\"introduction\"/></onstart>" + Parts(1) + "<files name=\"" +
                                longName + "\" destination=\"{destination}\"><file name=\"" + longName +
                                "\"" + payload.Add("x") + "/></files>",
                            "onstart " + choices, "installationname=\"" + longName + "\""};
         }},
        {"pictures of odd sizes",
         [&] {
             return Product{Picture("topimage", MakePNG(1, 1, 9)) +
                                Picture("leftimage", MakePNG(1, 3000, 9)) + Parts(1),
                            choices};
         }},
        {"wide and high ones",
         [&] {
             return Product{Picture("topimage", MakePNG(3000, 90, 9)) +
                                Picture("leftimage", MakePNG(90, 1, 9)) + Parts(1),
                            choices};
         }},
        {"broken ones",
         [&] {
             return Product{Picture("topimage", MakePNG(300, 60, 9).substr(0, 70)) +
                                Picture("leftimage", "none") + Parts(1),
                            choices};
         }},
    };
    for (const auto& [name, make] : products) {
        SCOPED_TRACE(name);
        Expect(make);
    }
}
