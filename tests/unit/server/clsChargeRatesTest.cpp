#include "server/clsChargeRates.h"

#include "ServerFixture.h"

namespace korvanta {
namespace {

class ChargeRates : public ServerFixture {
  protected:
    // "[Standard=100, Half=50]"
    std::u16string All() const {
        EXPECT_EQ(rates.ChargeRates()->Length(), rates.Descriptions()->Length());
        EXPECT_EQ(rates.Length(), rates.Descriptions()->Length());
        std::u16string text;
        const std::vector<Variant> values = rates.ChargeRates()->Items();
        const std::vector<Variant> descriptions = rates.Descriptions()->Items();
        for (std::size_t index = 0; index < values.size(); ++index) {
            text += (index == 0 ? u"" : u", ") + descriptions[index].Text() + u"=" + values[index].Rendering();
        }
        return u"[" + text + u"]";
    }
    bool Load(std::u16string_view text) {
        TextInput stream = Open(text);
        return rates.LoadFile(stream);
    }
    bool Save() {
        TextOutput stream = Create();
        return rates.SaveFile(stream);
    }

    clsChargeRates rates{mutexes, clock};
};

TEST_F(ChargeRates, ANewSetHasTheDefaultRate) {
    EXPECT_EQ(All(), u"[Default=100]");
}

TEST_F(ChargeRates, LinesAreValueAndDescriptionInFileOrder) {
    EXPECT_TRUE(Load(u"100\u0001Standard\r\n50.5\u0001Half\r\n-1\u0001"));
    EXPECT_EQ(All(), u"[Standard=100, Half=50.5, =-1]");
}

TEST_F(ChargeRates, LoadingPutsNewListsInPlace) {
    const auto before = rates.Descriptions();
    EXPECT_TRUE(Load(u"1\u0001One\r\n"));
    EXPECT_EQ(before->Item(0).Text(), u"Default");
    EXPECT_EQ(All(), u"[One=1]");
}

TEST_F(ChargeRates, AnEmptyFileLoadsAndGivesTheDefaultRate) {
    rates.Add(u"Old", 1);
    EXPECT_TRUE(Load(u""));
    EXPECT_EQ(All(), u"[Default=100]");
    files.WriteBytes(written, "");
    TextInput stream = TextInput::OpenUtf16(files, written);
    EXPECT_TRUE(rates.LoadFile(stream));
    EXPECT_EQ(All(), u"[Default=100]");
}

TEST_F(ChargeRates, ATextThatIsNoNumberIsZero) {
    EXPECT_TRUE(Load(u"abc\u0001Special\r\n12abc\u0001Twelve\r\n\u0001None\r\n0,5\u0001Comma\r\n"));
    EXPECT_EQ(All(), u"[Special=0, Twelve=12, None=0, Comma=0]");
}

TEST_F(ChargeRates, FieldsAfterTheSecondAreIgnored) {
    EXPECT_TRUE(Load(u"1\u0001One\u0001more\u0001\r\n"));
    EXPECT_EQ(All(), u"[One=1]");
}

TEST_F(ChargeRates, ALineWithoutASeparatorEndsTheLoadAndKeepsTheLinesBefore) {
    EXPECT_FALSE(Load(u"1\u0001One\r\n2 Two\r\n3\u0001Three\r\n"));
    EXPECT_EQ(All(), u"[One=1]");
    EXPECT_FALSE(Load(u"1\u0001One\r\n\r\n"));
    EXPECT_EQ(All(), u"[One=1]");
}

TEST_F(ChargeRates, AFirstLineWithoutASeparatorLeavesTheDefaultRate) {
    EXPECT_FALSE(Load(u"2 Two\r\n3\u0001Three\r\n"));
    EXPECT_EQ(All(), u"[Default=100]");
    EXPECT_FALSE(Load(u"\r\n"));
    EXPECT_EQ(All(), u"[Default=100]");
}

TEST_F(ChargeRates, Utf8AndBinaryFilesLeaveTheDefaultRate) {
    files.WriteBytes(written, "100\x01Standard\r\n50\x01Half\r\n");
    TextInput utf8 = TextInput::OpenUtf16(files, written);
    EXPECT_FALSE(rates.LoadFile(utf8));
    EXPECT_EQ(All(), u"[Default=100]");
    files.WriteGenerated(written, 200'000'000,
                         [](std::uint64_t, char* buffer, std::size_t size) { std::fill_n(buffer, size, '\xA7'); });
    TextInput binary = TextInput::OpenUtf16(files, written);
    EXPECT_FALSE(rates.LoadFile(binary));
    EXPECT_EQ(All(), u"[Default=100]");
}

TEST_F(ChargeRates, AFailingReadKeepsTheLinesBefore) {
    files.largestRead = 2 * (1 + 7);  // the byte-order mark and the first line
    TextInput stream = Open(u"1\u0001One\r\n2\u0001Two\r\n");
    files.faults.FailFrom("Read", 2, 64);
    EXPECT_FALSE(rates.LoadFile(stream));
    EXPECT_EQ(All(), u"[One=1]");
}

TEST_F(ChargeRates, ListsThatCannotBeMadeLeaveTheOldSet) {
    TextInput stream = Open(u"1\u0001One\r\n");
    mutexes.faults.FailOnce("CreateOwned", 2, 8);
    EXPECT_FALSE(rates.LoadFile(stream));
    EXPECT_EQ(All(), u"[Default=100]");
}

TEST_F(ChargeRates, ARateThatCannotBeAddedWholeIsNotAdded) {
    mutexes.state.waitResults = {WaitResult::Acquired, WaitResult::TimedOut};  // the second list's
    EXPECT_THROW(rates.Add(u"One", 1), Error);
    EXPECT_EQ(All(), u"[Default=100]");
}

TEST_F(ChargeRates, SwapExchangesBothLists) {
    Load(u"1\u0001One\r\n2\u0001Two\r\n3\u0001Three\r\n");
    rates.Swap(0, 2);
    EXPECT_EQ(All(), u"[Three=3, Two=2, One=1]");
    rates.Swap(1, 1);
    EXPECT_EQ(All(), u"[Three=3, Two=2, One=1]");
}

TEST_F(ChargeRates, SwapAndDeleteOutsideTheSetChangeNothing) {
    Load(u"1\u0001One\r\n2\u0001Two\r\n");
    rates.Swap(0, 2);
    rates.Swap(2, 0);
    rates.Swap(-1, 1);
    rates.Swap(1, -1);
    rates.Delete(2);
    rates.Delete(-1);
    rates.Delete(32767);
    rates.Delete(-32768);
    EXPECT_EQ(All(), u"[One=1, Two=2]");
}

TEST_F(ChargeRates, DeleteOfTheOnlyRateEmptiesTheSetUntilTheNextLoad) {
    rates.Delete(0);
    EXPECT_EQ(All(), u"[]");
    rates.Delete(0);
    EXPECT_EQ(All(), u"[]");
    EXPECT_TRUE(Load(u""));
    EXPECT_EQ(All(), u"[Default=100]");
}

TEST_F(ChargeRates, SavingWritesOneLinePerRate) {
    Load(u"100\u0001Standard\r\n0.5\u0001Half\r\n");
    EXPECT_TRUE(Save());
    EXPECT_EQ(files.ReadBytes(written), Utf16(u"100\u0001Standard\r\n0.5\u0001Half\r\n"));
}

TEST_F(ChargeRates, ADecimalCommaIsWrittenAndReadsBackAsTheWholePart) {
    Load(u"0.5\u0001Half\r\n");
    clock.decimalSeparator = u",";
    EXPECT_TRUE(Save());
    EXPECT_EQ(files.ReadBytes(written), Utf16(u"0,5\u0001Half\r\n"));
    TextInput stream = TextInput::OpenUtf16(files, written);
    EXPECT_TRUE(rates.LoadFile(stream));
    EXPECT_EQ(All(), u"[Half=0]");
}

TEST_F(ChargeRates, SavingAnEmptySetWritesAnEmptyFile) {
    rates.Delete(0);
    EXPECT_TRUE(Save());
    EXPECT_EQ(files.ReadBytes(written), Utf16(u""));
}

TEST_F(ChargeRates, SavingToAFullDiskFails) {
    TextOutput stream = Create();
    files.freeBytes = 10;
    EXPECT_FALSE(rates.SaveFile(stream));
}

TEST_F(ChargeRates, MoreRatesThanLengthCanTellAreStillLoadedAndSaved) {
    std::u16string text;
    for (int line = 0; line < 40'000; ++line) {
        text += u"1\u0001One\r\n";
    }
    EXPECT_TRUE(Load(text));
    EXPECT_EQ(rates.Length(), 32767);
    EXPECT_EQ(rates.Descriptions()->Length(), 40'000);
    EXPECT_TRUE(Save());
    EXPECT_EQ(files.ReadBytes(written), Utf16(text));
}

}  // namespace
}  // namespace korvanta
