#include "tests/update/DownloadFixture.h"

namespace {

const char* const NoMirrors = "0: No mirrors are available. Please check your internet connection.";

}  // namespace

TEST_F(DownloadTest, FetchesEachPartOnceAndAFurtherRunNothing) {
    MTestDownloadView view;
    EXPECT_TRUE(Run(view, {first.GetAddress()}));
    ExpectComplete();
    EXPECT_EQ(first.TakeRequests(), "INDEX.ZIP\nbig.1.zip\nbig.2.zip\nbig.3.zip\nbig.4.zip\nsmall.1.zip\n");
    EXPECT_EQ(view.texts,
              "Connecting the download server...\nDownloading files...\nChecking file integrity...\n"
              "Downloading...\nChecking file integrity...\nDownloading...\nChecking file integrity...\n"
              "Downloading...\n");
    EXPECT_EQ(view.maximum, 19);
    EXPECT_EQ(view.values, (std::vector<double>{0, 4, 8, 12, 14, 19}));
    ASSERT_EQ(view.statistics.size(), 1u);
    EXPECT_TRUE(view.statistics[0].ends_with("/s\nDownloaded: 14 B\nTotal size: 19 B")) << view.statistics[0];

    MTestDownloadView again;
    EXPECT_TRUE(Run(again, {first.GetAddress()}));
    EXPECT_EQ(first.TakeRequests(), "");
    EXPECT_EQ(again.values, (std::vector<double>{19}));
}

TEST_F(DownloadTest, GoesOnWithTheNextPartWhereverItWasCancelled) {
    const std::string parts[] = {"big.1.zip\n", "big.2.zip\n", "big.3.zip\n", "big.4.zip\n", "small.1.zip\n"};
    for (int32_t cancelled = 1; cancelled <= 5; ++cancelled) {
        MTestDownloadView view;
        view.cancelAfter = cancelled;
        EXPECT_FALSE(Run(view, {first.GetAddress()}));
        (void)first.TakeRequests();
        // What was written after the state was saved is cut away.
        const MString inHand = cancelled == 5 ? SmallFile : MString("target/big.bin");
        scratch.WriteFile(inHand, scratch.ReadFile(inHand) + "of a part that was not checked");

        MTestDownloadView rest;
        EXPECT_TRUE(Run(rest, {first.GetAddress()}));
        std::string expected;
        for (int32_t part = cancelled; part < 5; ++part) expected += parts[part];
        EXPECT_EQ(first.TakeRequests(), expected);
        EXPECT_EQ(rest.values.front(), view.values.back());
        EXPECT_EQ(rest.values.back(), 19);
        ExpectComplete();
        MFile::DeleteTree(target);
    }
}

TEST_F(DownloadTest, FilesThatWereChangedBehindItsBackAreFetchedAgain) {
    MTestDownloadView view;
    view.cancelAfter = 3;
    EXPECT_FALSE(Run(view));
    // Shorter than the state says: the rest cannot be known.
    scratch.WriteFile("target/big.bin", "aaaa");
    MTestDownloadView rest;
    EXPECT_TRUE(Run(rest));
    ExpectComplete();

    // Of the right length and not finished: only the digest of the whole finds out.
    MFile::DeleteTree(target);
    MTestDownloadView third;
    third.cancelAfter = 3;
    EXPECT_FALSE(Run(third));
    scratch.WriteFile("target/big.bin", "aaaabXbbcccc");
    (void)TakeRequests();
    MTestDownloadView retried;
    EXPECT_TRUE(Run(retried, {first.GetAddress()}));
    EXPECT_NE(retried.texts.find("Download failed, retrying...\n"), std::string::npos);
    EXPECT_EQ(first.TakeRequests(), "big.4.zip\nbig.1.zip\nbig.2.zip\nbig.3.zip\nbig.4.zip\nsmall.1.zip\n");
    ExpectComplete();

    // Finished, and then deleted.
    MFile::Delete(scratch.Join("target/big.bin"));
    MTestDownloadView restored;
    EXPECT_TRUE(Run(restored));
    EXPECT_EQ(restored.values.back(), 14 + 5);
    ExpectComplete();
}

TEST_F(DownloadTest, APartThatOneMirrorCannotGiveComesFromTheNext) {
    const std::function<void()> damages[] = {
        [&] { Publish(first, GetIndex(), "wrong "); },
        [&] { first.Put("/package/big.2.zip", ""); },
        [&] { first.Put("/package/big.2.zip", "HTTP/1.0 200 OK\nContent-Length: 4\n\nbb"); },
        [&] { first.Put("/package/big.2.zip", "HTTP/1.0 302 Found\nLocation: big.3.zip\n\n"); },
        [&] { first.Put("/package/big.2.zip", "HTTP/1.0 200 OK\n\n" + std::string(100000, 'b')); },
        [&] { first.Remove("/package/big.2.zip"); },
    };
    for (const auto& damage : damages) {
        Publish(first, GetIndex(), "");
        damage();
        MTestDownloadView view;
        EXPECT_TRUE(Run(view));
        ExpectComplete();
        MFile::DeleteTree(target);
    }
    MTestDownloadView view;
    EXPECT_TRUE(Run(view, {"http://127.0.0.1:1", second.GetAddress()}));
    ExpectComplete();
}

TEST_F(DownloadTest, GivesUpAfterTenTriesAndKeepsWhatItHas) {
    for (MTestMirror* mirror : {&first, &second}) mirror->Remove("/package/big.3.zip");
    MTestDownloadView view;
    EXPECT_EQ(FailureOf([&] { (void)Run(view); }), NoMirrors);
    const std::string requests = TakeRequests();
    size_t tries = 0;
    for (size_t at = 0; (at = requests.find("big.3.zip", at)) != std::string::npos; ++at) ++tries;
    EXPECT_EQ(tries, 10u);

    for (MTestMirror* mirror : {&first, &second}) mirror->Put("/package/big.3.zip", MTestBody("cccc"));
    MTestDownloadView rest;
    EXPECT_TRUE(Run(rest, {second.GetAddress()}));
    EXPECT_EQ(TakeRequests(), "big.3.zip\nbig.4.zip\nsmall.1.zip\n");
    ExpectComplete();
}

TEST_F(DownloadTest, TheListComesFromTheFirstMirrorThatHasOne) {
    first.Put("/package/INDEX.ZIP",
              "HTTP/1.0 302 Found\nLocation: " + Text(second.GetAddress()) + "/package/INDEX.ZIP\n\n");
    second.Put("/package/INDEX.ZIP", MTestBody("no list at all"));
    MTestDownloadView view;
    EXPECT_EQ(FailureOf([&] { (void)Run(view); }),
              "0: Could not connect to any download server. Please check your internet connection.");
    Publish(second, GetIndex(), "");
    EXPECT_TRUE(Run(view, {"http://127.0.0.1:1", first.GetAddress(), second.GetAddress()}));
    ExpectComplete();
    EXPECT_EQ(FailureOf([&] { (void)Run(view, {}); }), NoMirrors);

    // One that cannot be read is fetched again, and then knows nothing of what is there.
    scratch.WriteFile("target/downloader.dat", "damaged");
    (void)TakeRequests();
    EXPECT_TRUE(Run(view, {second.GetAddress()}));
    EXPECT_EQ(TakeRequests(), "INDEX.ZIP\nbig.1.zip\nbig.2.zip\nbig.3.zip\nbig.4.zip\nsmall.1.zip\n");
    ExpectComplete();
}

TEST_F(DownloadTest, NamesThatLeadOutAreRefusedBeforeAnythingIsWritten) {
    const std::string names[] = {"../out", "folder/../../out",    "/out",  "C:/out",
                                 "C:out",  "folder\\..\\..\\out", "\\out", "./downloader.dat"};
    for (const std::string& name : names) {
        for (const std::string& item :
             {DescribeFile("big", name, {"aaaa"}), "<Directory>" + name + "</Directory>"}) {
            std::string list = "<index Size=\"9\"><Directory>folder</Directory>";
            list += DescribeFile("small", "good", {"hello"});
            list += item;
            Publish(first, list + "</index>", "");
            MTestDownloadView view;
            EXPECT_EQ(FailureOf([&] { (void)Run(view, {first.GetAddress()}); }),
                      "0: The name \"" + name +
                          "\" in the download list leads out of its directory. The server is damaged or not "
                          "trustworthy; nothing has been written.");
            EXPECT_EQ(scratch.ListTree(), "target/\n");
        }
    }
    Publish(first, "<index><File ID=\"a\" md5=\"00\">name</File></index>", "");
    MTestDownloadView view;
    EXPECT_EQ(
        FailureOf([&] { (void)Run(view, {first.GetAddress()}); }),
        "0: The download list has no parts for the file \"name\". The server is damaged; please tell its "
        "maker.");
}
