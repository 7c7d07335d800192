#include "tests/orbit/ManySets.h"

#include <array>
#include <random>

#include "astro/mConv.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

struct Pattern {
  const char* line1;
  const char* line2;
};

constexpr std::array<Pattern, 8> low{{
    {"1 25544U 98067A   18020.89808844  .00002078  00000-0  38550-4 0  9992",
     "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614"},
    {"1 22220U 92076B   18020.98515396 -.00000262  00000-0 -10743-3 0  9999",
     "2 22220  71.0014 320.7900 0015042 296.1285 145.5600 14.16425754301610"},
    {"1 42879U 17042BG  18020.66388116  .00005557  00000-0  16368-3 0  9993",
     "2 42879  96.9937 284.7607 0010875 278.5639  81.4373 15.35369348 28991"},
    {"1 06073U 72023E   18021.21204673  .00015542  60058-5  75309-4 0  9996",
     "2 06073  52.0573 113.9025 1502179  87.6588 289.4847 12.74206277388737"},
    {"1 41617U 16040U   18020.92263222  .00002489  00000-0  10617-3 0  9990",
     "2 41617  97.4368  87.1954 0011421 122.4390 237.7955 15.22341617 86954"},
    {"1 24794U 97020C   17357.29133070  .33479621 -16083-5  31051-3 0  9994",
     "2 24794  86.3482 237.4619 0038730  97.6871 263.3574 16.47860342 80605"},
    {"1 88888U          18020.98708465  .00073094  13844-3  66816-4 0    87",
     "2 88888  72.8435 115.9689 0086731  52.6988 110.5714 16.05824518  1058"},
    {"1 33591U 09005A   18020.92263222  .00000089  00000-0  73236-4 0  9990",
     "2 33591  99.1300 357.9800 0014500 166.1300 194.0200 14.12134512461230"},
}};
constexpr std::array<Pattern, 4> deep{{
    {"1 37846U 11060A   18014.38444668 -.00000055  00000-0  00000+0 0  9993",
     "2 37846  55.9882  65.8058 0003996 310.6491  49.3866  1.70473581 38812"},
    {"1 11057U 78095A   18021.18348580  .00102177 -26516-6  17544-3 0  9991",
     "2 11057  62.4998 306.9510 6145807 276.4738  21.4469  3.94913495318023"},
    {"1 22674U 93035D   18019.55909107  .00002121  00000-0  29868-3 0  6569",
     "2 22674  63.5035 354.4452 7541712 253.3264  18.7754  2.00667980893877"},
    {"1 25989U 99066A   18022.04501424 -.00000289  00000-0  00000+0 0  9995",
     "2 25989  69.8243 353.2400 8091637  95.9983   0.4667  0.50137542 21981"},
}};
constexpr Pattern geostationary{"1 33463U 08066A   18020.92427267 -.00000196  00000-0  00000-0 0  9996",
                                "2 33463   2.5961  68.3299 0005420 238.1317 232.9153  1.00265947 33316"};

}  // namespace

std::vector<DatabaseEntry> ManySets(int count, bool broken) {
  std::mt19937 random(20180120);
  const auto upTo = [&random](double limit) { return limit * static_cast<double>(random()) / 4294967296.0; };
  std::vector<DatabaseEntry> entries;
  entries.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const int kind = static_cast<int>(upTo(100));
    const Pattern& pattern = kind < 85   ? low.at(static_cast<std::size_t>(upTo(low.size())))
                             : kind < 95 ? deep.at(static_cast<std::size_t>(upTo(deep.size())))
                                         : geostationary;
    DatabaseEntry entry{"SATELLITE " + std::to_string(i), pattern.line1, pattern.line2};
    const std::string number = Format(1 + i % 99999, "00000");
    entry.line1.replace(2, 5, number);
    entry.line2.replace(2, 5, number);
    entry.line2.replace(8, 8,
                        RightAligned(Format(ParseNumber(entry.line2.substr(8, 8)) + upTo(4), "0.0000"), 8));
    entry.line2.replace(17, 8, RightAligned(Format(upTo(360), "0.0000"), 8));
    entry.line2.replace(34, 8, RightAligned(Format(upTo(360), "0.0000"), 8));
    entry.line2.replace(43, 8, RightAligned(Format(upTo(360), "0.0000"), 8));
    if (broken && i % 11 == 3) entry.line2.replace(26, 7, "0000000");
    if (broken && i % 53 == 7) entry.line2.replace(52, 11, " 0.00000000");
    if (broken && i % 47 == 5) entry.line1.replace(2, 5, "x1234");
    if (broken && i % 29 == 9) entry.line1.replace(53, 8, " 99999-1");
    entries.push_back(entry);
  }
  return entries;
}

}  // namespace halvorine
