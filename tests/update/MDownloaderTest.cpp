#include "payload/MDownloadNames.h"
#include "tests/update/DownloadFixture.h"

TEST_F(DownloadTest, FetchesEachPartOnceAndAFurtherRunNothing) {
    const MTestDownloadView view = RunToTheEnd({first.GetAddress()});
    EXPECT_EQ(first.TakeRequests(), "INDEX.ZIP\nbig.1.zip\nbig.2.zip\nbig.3.zip\nbig.4.zip\nsmall.1.zip\n");
    EXPECT_EQ(view.texts,
              "Connecting the download server...\nDownloading files...\nChecking file integrity...\n"
              "Downloading...\nChecking file integrity...\nDownloading...\nChecking file integrity...\n"
              "Downloading...\n");
    EXPECT_EQ(view.maximum, 19);
    EXPECT_EQ(view.values, (std::vector<double>{0, 4, 8, 12, 14, 19}));
    ASSERT_EQ(view.statistics.size(), 1u);
    EXPECT_TRUE(view.statistics[0].ends_with("/s\nDownloaded: 14 B\nTotal size: 19 B")) << view.statistics[0];

    EXPECT_EQ(RunToTheEnd({first.GetAddress()}).values, (std::vector<double>{19}));
    EXPECT_EQ(first.TakeRequests(), "");
}

TEST_F(DownloadTest, GoesOnWithTheNextPartWhereverItWasCancelled) {
    const std::string parts = "big.1.zip\nbig.2.zip\nbig.3.zip\nbig.4.zip\nsmall.1.zip\n";
    const double bytes[] = {4, 8, 12, 14, 19};
    for (size_t cancelled = 1; cancelled <= 5; ++cancelled) {
        RunInPart(cancelled);
        (void)first.TakeRequests();
        // What was written after the state was saved is cut away.
        const MString inHand = cancelled == 5 ? SmallFile : MString("target/big.bin");
        scratch.WriteFile(inHand, scratch.ReadFile(inHand) + "of a part that was not checked");

        const MTestDownloadView rest = RunToTheEnd({first.GetAddress()});
        EXPECT_EQ(first.TakeRequests(), cancelled == 5 ? "" : parts.substr(10 * cancelled));
        EXPECT_EQ(rest.values.front(), bytes[cancelled - 1]);
        MFile::DeleteTree(target);
    }
}

TEST_F(DownloadTest, FilesThatWereChangedBehindItsBackAreFetchedAgain) {
    RunInPart(3);
    // Shorter than the state says: the rest cannot be known.
    scratch.WriteFile("target/big.bin", "aaaa");
    EXPECT_EQ(RunToTheEnd(Both()).texts.find("retrying"), std::string::npos);

    // Of the right length and not finished: only the digest of the whole finds out.
    MFile::DeleteTree(target);
    RunInPart(3);
    scratch.WriteFile("target/big.bin", "aaaabXbbcccc");
    (void)TakeRequests();
    EXPECT_NE(RunToTheEnd({first.GetAddress()}).texts.find("Download failed, retrying...\n"),
              std::string::npos);
    EXPECT_EQ(first.TakeRequests(), "big.4.zip\nbig.1.zip\nbig.2.zip\nbig.3.zip\nbig.4.zip\nsmall.1.zip\n");

    // Finished, and then cut; finished, and then deleted.
    scratch.WriteFile("target/big.bin", "cut");
    (void)RunToTheEnd(Both());
    MFile::Delete(scratch.Join("target/big.bin"));
    EXPECT_EQ(RunToTheEnd(Both()).values.back(), 14 + 5);
    const std::string saved = scratch.ReadFile("target/downloader.dat");
    MMemoryStream stored = MStreamOf(saved);
    MDownloadIndex index;
    index.Load(stored);
    EXPECT_EQ(index.GetRoot().GetInt64Attribute("Downloaded"), 19);
}

TEST_F(DownloadTest, WhatAMirrorSaysIsFetchedAndWhatLiesAroundCountForNothing) {
    std::string index = GetIndex();
    const std::string lies = "Finished=\"1\" NextPartIndex=\"3\" NextPartSize=\"12\" ";
    for (size_t at = 0; (at = index.find("<File ", at)) != std::string::npos; at += lies.size())
        index.insert(at += 6, lies);
    Publish(first, index);
    scratch.WriteFile("target/big.bin", "planted planted");
    RunToTheEnd({first.GetAddress()});
    EXPECT_EQ(first.TakeRequests(), "INDEX.ZIP\nbig.1.zip\nbig.2.zip\nbig.3.zip\nbig.4.zip\nsmall.1.zip\n");
}

TEST_F(DownloadTest, AFileThatIsWrongAsAWholeIsFetchedAgain) {
    const std::string digest = MTestDigest("aaaabbbbccccdd");
    std::string index = GetIndex();
    Publish(first, index.replace(index.find(digest), digest.size(), MTestDigest("else")));
    RunInPart(9);
    const std::string round = "big.1.zip\nbig.2.zip\nbig.3.zip\nbig.4.zip\n";
    EXPECT_EQ(first.TakeRequests(), "INDEX.ZIP\n" + round + round + "big.1.zip\n");
}

TEST_F(DownloadTest, ASilentMirrorIsLeftForAnotherOrByTheUser) {
    // One that keeps the connection has still sent all that it announced.
    second.Put("/package/big.2.zip", LeftOpen(MTestBody("bbbb")));
    MTestDownloadView patient;
    patient.cancelAtQuestion = 60;
    EXPECT_TRUE(Run(patient, {second.GetAddress()}));

    MFile::DeleteTree(target);
    second.Put("/package/big.3.zip", LeftOpen("HTTP/1.0 200 OK\n\ncc"));
    first.Put("/package/big.4.zip", LeftOpen(""));
    first.Put("/package/INDEX.ZIP", LeftOpen(""));
    RunToTheEnd(Both());

    MFile::DeleteTree(target);
    first.Put("/package/INDEX.ZIP", MTestBody(MDeflate(GetIndex())));
    MTestDownloadView view;
    view.cancelAtQuestion = 12;
    EXPECT_FALSE(Run(view, {first.GetAddress()}));
    EXPECT_EQ(view.values.back(), 12);
    (void)TakeRequests();
    RunToTheEnd(Both());
    EXPECT_EQ(TakeRequests().find("big.1.zip"), std::string::npos);
}

TEST_F(DownloadTest, APartThatOneMirrorCannotGiveComesFromTheNext) {
    const MTestReply replies[] = {
        NotFound,
        "",
        MTestBody("wrong bbbb"),
        "HTTP/1.0 200 OK\nContent-Length: 4\n\nbb",
        "HTTP/1.0 302 Found\nLocation: big.2.zip?\n\n",
    };
    for (const MTestReply& reply : replies) {
        first.Put("/package/big.2.zip", reply);
        first.Put("/package/big.2.zip?", MTestBody("bbbb"));
        RunToTheEnd(Both());
        EXPECT_EQ(first.TakeRequests().find("big.2.zip?"), std::string::npos);
        MFile::DeleteTree(target);
    }
    RunToTheEnd({"http://127.0.0.1:1", second.GetAddress()});
}

TEST_F(DownloadTest, GivesUpAfterTenTriesAndKeepsWhatItHas) {
    for (MTestMirror* mirror : {&first, &second}) mirror->Put("/package/big.3.zip", NotFound);
    EXPECT_EQ(FailureOfRun(Both()), NoMirrors);
    const std::string requests = TakeRequests();
    size_t tries = 0;
    for (size_t at = 0; (at = requests.find("big.3.zip", at)) != std::string::npos; ++at) ++tries;
    EXPECT_EQ(tries, 10u);

    second.Put("/package/big.3.zip", MTestBody("cccc"));
    RunToTheEnd({second.GetAddress()});
    EXPECT_EQ(TakeRequests(), "big.3.zip\nbig.4.zip\nsmall.1.zip\n");

    // A part of more bytes than all files together is refused, although its digest is right.
    MFile::DeleteTree(target);
    for (MTestMirror* mirror : {&first, &second})
        Publish(*mirror, "<index Size=\"3\">" + DescribeFile("big", "big.bin", {"aaaa"}) + "</index>");
    EXPECT_EQ(FailureOfRun(Both()), NoMirrors);
}

TEST_F(DownloadTest, TheListComesFromTheFirstMirrorThatHasOne) {
    first.Put("/package/INDEX.ZIP",
              "HTTP/1.0 302 Found\nLocation: " + Text(second.GetAddress()) + "/package/INDEX.ZIP\n\n");
    second.Put("/package/INDEX.ZIP", MTestBody("no list at all"));
    EXPECT_EQ(FailureOfRun(Both()),
              "0: Could not connect to any download server. Please check your internet connection.");
    Publish(second, GetIndex());
    RunToTheEnd({"http://127.0.0.1:1", first.GetAddress(), second.GetAddress()});
    EXPECT_EQ(FailureOfRun({}), NoMirrors);

    // One that cannot be read is fetched again, and then knows nothing of what is there.
    scratch.WriteFile("target/downloader.dat", "damaged");
    (void)TakeRequests();
    RunToTheEnd({second.GetAddress()});
    EXPECT_EQ(TakeRequests(), "INDEX.ZIP\nbig.1.zip\nbig.2.zip\nbig.3.zip\nbig.4.zip\nsmall.1.zip\n");
}

TEST_F(DownloadTest, NamesThatLeadOutAreRefusedBeforeAnythingIsWritten) {
    const std::string names[] = {"../out",
                                 "folder/../../out",
                                 "/out",
                                 "C:/out",
                                 "C:out",
                                 "folder\\..\\..\\out",
                                 "\\out",
                                 "./downloader.dat",
                                 ".//Downloader.dat/x",
                                 ".\\downloader.dat.unfinished",
                                 "DOWNLO~1.DAT"};
    for (const std::string& name : names) {
        for (const std::string& item :
             {DescribeFile("big", name, {"aaaa"}), "<Directory>" + name + "</Directory>"}) {
            Publish(first, "<index Size=\"9\"><Directory>folder</Directory>" +
                               DescribeFile("small", "good", {"hello"}) + item + "</index>");
            EXPECT_EQ(FailureOfRun({first.GetAddress()}),
                      "0: The name \"" + name +
                          "\" in the download list leads out of its directory. The server is damaged or not "
                          "trustworthy; nothing has been written.");
            EXPECT_EQ(scratch.ListTree(), "target/\n");
        }
    }
    std::string deep = "x";
    for (int i = 0; i < MDownloadNames::MaximumDepth; ++i) deep += "/x";
    for (const std::string& name : {deep, std::string(5000, 'x')}) {
        Publish(first, "<index>" + DescribeFile("big", name, {"aaaa"}) + "</index>");
        EXPECT_EQ(
            FailureOfRun({first.GetAddress()}),
            "0: A name in the download list has more than 250 components or 4000 characters. The server is "
            "damaged or not trustworthy; nothing has been written.");
    }
    Publish(first, "<index><File ID=\"a\" md5=\"00\">name</File></index>");
    EXPECT_EQ(
        FailureOfRun({first.GetAddress()}),
        "0: The download list has no parts for the file \"name\". The server is damaged; please tell its "
        "maker.");
}

TEST(MDownloadSpeedTest, IsTheMeanOfFourPartsAndOfWhatWasShown) {
    MDownloadSpeed speed;
    const std::tuple<int64_t, double, int64_t> shown[] = {{100, 1, 100}, {400, 2, 180}, {1, 0, 8036}};
    for (const auto& [bytes, seconds, mean] : shown) {
        for (int32_t part = 1; part <= 4; ++part) EXPECT_EQ(speed.Add(bytes, seconds), part == 4);
        EXPECT_EQ(speed.Get(), mean);
    }
}
