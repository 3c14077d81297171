// The settings record store, to the byte.
#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "core/store/settings.h"
#include "tests/support/failing_allocator.h"

namespace {

using namespace std::string_literals;

// Record bytes are written with '|' for NUL, so that they can be read: "\1k|\2value||".
std::string Bytes(const CMdbRecord& record) {
    std::string bytes(record.GetData() == nullptr ? "" : record.GetData(), record.GetSize());
    for (char& c : bytes) {
        c = c == '\0' ? '|' : c;
    }
    return bytes;
}

std::string WithNuls(std::string text) {
    for (char& c : text) {
        c = c == '|' ? '\0' : c;
    }
    return text;
}

void Add(CMdb& store, const std::string& readable) {
    ASSERT_EQ(store.AddRecord(WithNuls(readable).c_str()), 1);
}

std::vector<std::string> Records(const CMdb& store) {
    std::vector<std::string> records;
    for (const CMdbRecord* record = store.GetFirst(); record != nullptr; record = record->GetNext()) {
        records.push_back(Bytes(*record) + (record->IsChanged() != 0 ? "*" : ""));
    }
    return records;
}

using List = std::vector<std::string>;

TEST(Record, SetFieldGivesTheExactBytes) {
    struct Case {
        const char* sentence;
        std::string before;
        int tag;
        const char* text;
        std::string after;
        std::ptrdiff_t result;  // Offset of the returned pointer; -1 for null.
    };
    const Case cases[] = {
        {"first field of an empty record", "|", 1, "A", "\1A||", 1},
        {"grown field moves to the front", "\1k|\2x||", 2, "abc", "\2abc|\1k||", 1},
        {"same length stays in place", "\1k|\2x||", 2, "y", "\1k|\2y||", 4},
        {"shorter stays in place", "\1k|\2x||", 2, "", "\1k|\2||", 4},
        {"shorter first field moves the rest down", "\1key|\2x|\3z||", 1, "k", "\1k|\2x|\3z||", 1},
        {"null text removes the last field", "\1k|\2x||", 2, nullptr, "\1k||", 4},
        {"null text removes the first field", "\1k|\2x||", 1, nullptr, "\2x||", 1},
        {"removing the only field leaves the end mark", "\1k||", 1, nullptr, "|", 1},
        {"removing an absent field does nothing", "\1k|\2x||", 3, nullptr, "\1k|\2x||", -1},
        {"absent field is added in front", "\1k|\2x||", 3, "", "\3|\1k|\2x||", 1},
        {"growing a middle field keeps the order of the others", "\1a|\2b|\3c||", 2, "bb", "\2bb|\1a|\3c||", 1},
        {"growing an empty value", "\1k|\2||", 2, "v", "\2v|\1k||", 1},
        {"tag 0 names no field", "\1k||", 0, "x", "\1k||", -1},
        {"tag above 127 names no field", "\1k||", 200, "x", "\1k||", -1},
        {"tag 256 cannot end the record early", "\1k||", 256, "x", "\1k||", -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.sentence);
        CMdbRecord record(WithNuls(c.before).c_str());
        const char* result = record.SetField(c.tag, c.text);
        EXPECT_EQ(Bytes(record), c.after);
        EXPECT_EQ(result == nullptr ? -1 : result - record.GetData(), c.result);
        EXPECT_EQ(record.GetSize(), c.after.size());
    }
}

TEST(Record, InPlaceChangesKeepTheBufferAndGrowthReplacesIt) {
    CMdbRecord record(WithNuls("\1k|\2long||").c_str());
    const char* buffer = record.GetData();
    record.SetField(2, "");
    record.SetField(2, nullptr);
    EXPECT_EQ(record.GetData(), buffer);
    EXPECT_EQ(record.GetField(2), nullptr);
    record.SetField(1, "kk");
    EXPECT_STREQ(record.GetField(1), "kk");
}

TEST(Record, TextMayComeFromTheRecordItself) {
    CMdbRecord record(WithNuls("\1key|\2x||").c_str());
    record.SetField(2, record.GetField(1));
    EXPECT_EQ(Bytes(record), "\2key|\1key||");
    record.SetField(2, record.GetField(2) + 1);
    EXPECT_EQ(Bytes(record), "\2ey|\1key||");
}

TEST(Record, WithoutFieldsHasNoBuffer) {
    for (const char* source : {static_cast<const char*>(nullptr), ""}) {
        CMdbRecord record(source);
        EXPECT_EQ(record.GetData(), nullptr);
        EXPECT_EQ(record.GetSize(), 0U);
        EXPECT_EQ(record.FindField(1), -1);
        EXPECT_EQ(record.GetField(1), nullptr);
        EXPECT_EQ(record.SetField(1, nullptr), nullptr);
        record.SetField(1, "A");
        EXPECT_EQ(Bytes(record), "\1A||");
        EXPECT_EQ(record.FindField(0), -1);
        EXPECT_EQ(record.FindField(0x101), -1);
    }
}

TEST(Store, ConstructionWritesTheHeadOnly) {
    alignas(CMdb) unsigned char memory[sizeof(CMdb)];
    std::memset(memory, 0xAB, sizeof memory);
    // Out of the compiler's sight, which may forget what was in the memory before.
    CMdb* (*volatile construct)(void*) = [](void* at) { return new (at) CMdb; };
    CMdb* store = construct(memory);
    const std::vector<unsigned char> tail(memory, memory + sizeof(void*));
    EXPECT_EQ(tail, std::vector<unsigned char>(sizeof(void*), 0xAB));
    EXPECT_EQ(store->GetFirst(), nullptr);
    store->~CMdb();
}

TEST(Store, NumbersRecordsFromOneAndAppendsAgainAfterRemoveAll) {
    CMdb store;
    EXPECT_EQ(store.GetRecord(1), nullptr);
    Add(store, "\1a||");
    EXPECT_EQ(store.AddRecord(nullptr), 1);
    EXPECT_EQ(store.AddRecord(""), 1);
    EXPECT_EQ(Records(store), (List{"\1a||", "", ""}));
    EXPECT_EQ(store.GetRecord(0), nullptr);
    EXPECT_EQ(store.GetRecord(2), store.GetFirst()->GetNext());
    EXPECT_EQ(store.GetRecord(4), nullptr);
    store.RemoveAll();
    EXPECT_EQ(store.GetFirst(), nullptr);
    Add(store, "\1b||");
    EXPECT_EQ(Records(store), (List{"\1b||"}));
}

// Records that break the contract: no key, no value, neither, no buffer.
void AddOddRecords(CMdb& store) {
    Add(store, "\2alone||");
    Add(store, "\1KEY||");
    store.AddRecord(nullptr);
    Add(store, "\3other||");
}

TEST(Settings, LookupTakesTheFirstFullRecordAndIsCaseSensitive) {
    CMdb store;
    AddOddRecords(store);
    Add(store, "\1key|\2lower||");
    Add(store, "\2first|\1KEY||");
    Add(store, "\1KEY|\2second||");
    CMdbRecord* record = nullptr;
    EXPECT_EQ(FindSetting(&store, "KEY", record), 6);
    EXPECT_STREQ(record->GetField(CMdbRecord::kValueTag), "first");
    EXPECT_EQ(FindSettingRecord(&store, "KEY"), record);
    EXPECT_EQ(FindSetting(&store, "KE", record), 0);
    EXPECT_EQ(record, nullptr);
    EXPECT_EQ(FindSettingRecord(&store, ""), nullptr);
    EXPECT_EQ(FindSettingRecord(&store, nullptr), nullptr);
    EXPECT_EQ(FindSettingRecord(nullptr, "KEY"), nullptr);
}

TEST(Settings, SetChangesTheFirstMatchWithoutTheFlagOrAppends) {
    CMdb store;
    Add(store, "\1K|\2a||");
    Add(store, "\1K|\2b||");
    SetSetting(&store, "K", "c");
    SetSetting(&store, "NEW", "1");
    SetSetting(&store, "EMPTY", "");
    SetSetting(&store, "K", "longer");
    EXPECT_EQ(Records(store), (List{"\2longer|\1K||", "\1K|\2b||",
                                    "\1NEW|\2"
                                    "1||",
                                    "\1"
                                    "EMPTY|\2||"}));
}

TEST(Settings, MergeMarksOverwrittenRecordsOnlyAndKeepsTheSource) {
    const std::string longKey(200, 'L');
    CMdb from;
    AddOddRecords(from);
    Add(from, "\1OLD|\2new value||");
    Add(from, "\1SHORT|\2n||");
    Add(from, "\1NEW|\2x||");
    SetSetting(&from, longKey.c_str(), "v");
    const List source = Records(from);
    const List before = {"\2alone||", "\1KEY||", "", "\3other||", "\1OLD|\2o||", "\1KEPT|\2k||", "\1SHORT|\2old||"};
    const List after = {"\2alone||",
                        "\1KEY||",
                        "",
                        "\3other||",
                        "\2new value|\1OLD||*",
                        "\1KEPT|\2k||",
                        "\1SHORT|\2n||*",
                        "\1NEW|\2x||",
                        "\1" + longKey + "|\2v||"};
    for (const auto merge : {&MergeSettingRecords, &CommitSettingRecords}) {
        CMdb to;
        AddOddRecords(to);
        for (size_t i = 4; i < before.size(); ++i) {
            Add(to, before[i]);
        }
        // The second kind merges all or nothing, wherever memory runs out.
        int failures = 0;
        for (bool isMerged = merge == &MergeSettingRecords; !isMerged; ++failures) {
            ASSERT_EQ(Records(to), before);
            const FailingAllocator failing(failures);
            isMerged = merge(&from, &to) != 0;
        }
        EXPECT_TRUE(merge == &MergeSettingRecords ? merge(&from, &to) != 0 : failures > 5);
        EXPECT_EQ(Records(to), after);
        EXPECT_EQ(Records(from), source);
        EXPECT_EQ(merge(&from, &to), 1);
        EXPECT_EQ(to.GetRecord(8)->IsChanged(), 1) << "a second merge finds the record that the first one appended";
        EXPECT_EQ(to.GetRecord(10), nullptr);
    }
}

TEST(Settings, WriteStoresTheValueAndNeverLeavesThePlaceholder) {
    CMdb store;
    EXPECT_EQ(WriteSetting(&store, "A", "1"), 1);
    EXPECT_EQ(WriteSetting(&store, "B", "long"), 1);
    EXPECT_EQ(WriteSetting(&store, "C", ""), 1);
    EXPECT_EQ(WriteSetting(&store, "A", "22"), 1);
    Add(store, "\1NOVALUE||");
    EXPECT_EQ(WriteSetting(&store, "NOVALUE", "v"), 1);
    EXPECT_EQ(Records(store),
              (List{"\00222|\001A||", "\002long|\001B||", "\001C|\2||", "\1NOVALUE||", "\1NOVALUE|\2v||"}));
    EXPECT_EQ(WriteSetting(nullptr, "A", "1"), 0);
    EXPECT_EQ(WriteSetting(&store, nullptr, "1"), 0);
    EXPECT_EQ(WriteSetting(&store, "A", nullptr), 0);
    CMdb other;
    EXPECT_EQ(WriteSetting(&other, "", "v"), 0);
    EXPECT_EQ(Records(other), (List{"\1|\2x||"}));
}

TEST(Settings, RunningOutOfMemoryLosesTheNewSettingOnly) {
    CMdb store;
    Add(store, "\1K|\2a||");
    CMdb from;
    Add(from, "\1K|\2longer||");
    Add(from, "\1NEW|\2x||");
    for (int succeeding = 0; succeeding < 3; ++succeeding) {
        const FailingAllocator failing(succeeding);
        SetSetting(&store, "NEW", "1");
        if (succeeding == 0) {
            SetSetting(&store, "K", "longer");
        }
    }
    EXPECT_EQ(Records(store), (List{"\1K|\2a||"}));
    int written = -1;
    {
        const FailingAllocator failing(0);
        MergeSettingRecords(&from, &store);
        written = WriteSetting(&store, "K", "longer");
    }
    EXPECT_EQ(written, 0);
    EXPECT_EQ(Records(store), (List{"\1K|\2a||"})) << "not marked as changed either";
    MergeSettingRecords(&from, &store);
    EXPECT_EQ(Records(store), (List{"\2longer|\1K||*", "\1NEW|\2x||"}));
}

}  // namespace
