#include "catalogue/mTables.h"

#include <cstdio>

#include "tests/catalogue/CatalogueFixture.h"

namespace halvorine {
namespace {

using TablesTest = CatalogueTest;

TEST_F(TablesTest, LastMagnitudeRowFixesTheUpperBound) {
  struct Row {
    const char *text, *sought;
    int number;
    std::size_t size;
  };
  const Row rows[] = {
      {"\"00005\",\"9.5\"\r\n\"00011\",\"7.5\"\r\n", "7.5", 11, 12},
      {"5,9.5\n11,-1.2", "-1.2", 11, 12},
      {"\"5\",\"\"\n\"22000\",\"\"\n", "", 22000, 22001},
      {"\"00011\",\"7.5\"\n\"00005\",\"9.5\"\n", "9.5", 5, 6},     // a lower number cuts the table
      {"\"9\",\"1\"\n\"5\",\"2\"\n\"9\",\"\"\n", "", 9, 10},       // and what was cut is gone
      {"\"00005\",\"9.5\"\n\"\",\"\"\n\"7\",\"1\"", "9.5", 5, 6},  // an empty number ends the file
      {"5,9.5\n \r\n7,1", "9.5", 5, 6},                            // so does an empty line
  };
  for (const Row& row : rows) {
    ReadMagnitudes(row.text);
    EXPECT_EQ(MagnitudeTable.size(), row.size) << row.text;
    EXPECT_EQ(StandardMagnitude(row.number), row.sought) << row.text;
    EXPECT_THROW(StandardMagnitude(static_cast<int>(row.size)), SubscriptFailure);
    EXPECT_THROW(StandardMagnitude(-1), SubscriptFailure);
  }
  std::string toAndFro;
  for (int i = 0; i < 20000; ++i) toAndFro += "999999,1\n0,2\n";  // ends in no time, for all its length
  ReadMagnitudes(toAndFro);
  EXPECT_EQ(MagnitudeTable, std::vector<std::string>{"2"});
}

TEST_F(TablesTest, DamagedTablesFailAndLeaveTheOldOnes) {
  ReadMagnitudes("\"5\",\"1.0\"");
  ReadFrequencies("\"5\",145.8,437.5,\"\"");
  for (const char* text : {"x,1", "\"-1\",\"1\"", "\"9999999\",\"1\"", "\"1e999\",\"1\"", "\"5\"", "\"5,1"})
    EXPECT_THROW(ReadMagnitudes(text), RuntimeFailure) << text;
  for (const char* text : {"\"5\",x,1,\"\"", "\"5\",1", "\"5\",1e300,1,\"\"", "\"5\",,1,\"\""})
    EXPECT_THROW(ReadFrequencies(text), RuntimeFailure) << text;
  EXPECT_EQ(StandardMagnitude(5), "1.0");
  EXPECT_EQ(FrequencyTable.size(), 1U);
  EXPECT_THROW(LoadMagnitudes(), FileFailure);
  EXPECT_THROW(LoadFrequencies(), FileFailure);
}

TEST_F(TablesTest, FrequenciesAreTheTextOfASingle) {
  Write("Frequen.DAT",
        "\"25544\",145.200,437.12355678,\"note, with comma\"\n07530,0,29502e-3,x\n\n9,0,0,\"\"\n");
  LoadFrequencies();
  ASSERT_EQ(FrequencyTable.size(), 2U);
  EXPECT_EQ(FrequencyTable[0].catalogueNumber, "25544");
  EXPECT_EQ(FrequencyTable[0].uplink, "145.2");
  EXPECT_EQ(FrequencyTable[0].downlink, "437.1236");
  EXPECT_EQ(FrequencyTable[1].catalogueNumber, "07530");
  EXPECT_EQ(FrequencyTable[1].uplink, "0");
  EXPECT_EQ(FrequencyTable[1].downlink, "29.502");
}

TEST_F(TablesTest, DistributionServesTheFirstSlotOfANumberAndFillsUpToTenChannels) {
  ActiveCount = 3;
  ElementSets[1].CatalogNumber = "00007";
  ElementSets[2].CatalogNumber = ElementSets[3].CatalogNumber = "00005";
  ElementSets[2].Downlink[0] = "1";  // half a channel is not free
  for (int i = 1; i <= 4; ++i) FrequencyTable.push_back({"00005", "", std::to_string(100 + i)});
  DistributeFrequencies();
  EXPECT_EQ(ElementSets[2].Downlink[1], "101");
  EXPECT_EQ(ElementSets[2].Downlink[4], "104");
  EXPECT_EQ(ElementSets[2].Downlink[5], "");
  DistributeFrequencies();
  DistributeFrequencies();
  EXPECT_EQ(ElementSets[2].Downlink[5], "101");
  EXPECT_EQ(ElementSets[2].Downlink[9], "101");
  EXPECT_EQ(ElementSets[3].Downlink[0], "");
  EXPECT_EQ(ElementSets[1].Downlink[0], "");
}

}  // namespace
}  // namespace halvorine
