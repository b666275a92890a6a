// Truth tables of the numeric test and the date test, and the calendar's arithmetic.
#include <gtest/gtest.h>

#include "basis/datum.h"
#include "basis/zahl.h"

namespace liedwerk {
namespace {

TEST(Zahl, Wahrheitstafel) {
    const struct {
        std::string_view Text;
        std::optional<double> Wert;
    } Fälle[] = {
        {"0", 0},          {"-1", -1},
        {"+12", 12},       {" 7  ", 7},
        {"1.234", 1234},   {"1.234.567,5", 1234567.5},
        {"12,", 12},       {",5", 0.5},
        {"-,25", -0.25},   {"1e3", 1000},
        {"2,5D-1", 0.25},  {"1E+2", 100},
        {"007", 7},        {"0e999999999999", 0},
        {"1e-400", 0},     {"9007199254740993", 9007199254740992.0},
        {"", {}},          {" ", {}},
        {"-", {}},         {",", {}},
        {".", {}},         {"1.23", {}},
        {"1234.567", {}},  {".123", {}},
        {"1.2345", {}},    {"1,2,3", {}},
        {"1,234.5", {}},   {"1.234.", {}},
        {"--1", {}},       {"- 1", {}},
        {"1-", {}},        {"1e", {}},
        {"e5", {}},        {"1e+", {}},
        {"1 2", {}},       {"0x10", {}},
        {"nan", {}},       {"inf", {}},
        {"1e400", {}},     {"1e99999999999999999999", {}},
        {"128 CBR", {}},   {"\t1", {}},
        {"1\xC2\xA0", {}}, {std::string_view("1\0", 2), {}},
    };
    for (const auto& Fall : Fälle)
        EXPECT_EQ(Zahl(Fall.Text), Fall.Wert) << "'" << Fall.Text << "'";
    EXPECT_EQ(Zahl(std::string(400, '9')), std::nullopt);
    EXPECT_EQ(Zahl("0," + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(Zahl("-0," + std::string(900, '0') + "1e100"), 0.0);
}

TEST(Zahl, RundetZumGeradenNachbarnUndHältDieGrenzen) {
    EXPECT_EQ(GanzzahlLesen<std::int16_t>("2,5"), 2);
    EXPECT_EQ(GanzzahlLesen<std::int16_t>("3,5"), 4);
    EXPECT_EQ(GanzzahlLesen<std::int16_t>("-0,5"), 0);
    EXPECT_EQ(GanzzahlLesen<std::int16_t>("32767"), 32767);
    EXPECT_EQ(GanzzahlLesen<std::int16_t>("32767,5"), std::nullopt);
    EXPECT_EQ(GanzzahlLesen<std::int16_t>("-32768"), -32768);
    EXPECT_EQ(GanzzahlLesen<std::int16_t>("32768"), std::nullopt);
    EXPECT_EQ(GanzzahlLesen<std::uint8_t>("-1"), std::nullopt);
    EXPECT_EQ(GanzzahlLesen<std::int32_t>("4294967296"), std::nullopt);
    EXPECT_EQ(GanzzahlLesen<std::int64_t>("9223372036854775808"), std::nullopt);
    EXPECT_EQ(GanzzahlLesen<std::int64_t>("-9223372036854775808"), INT64_MIN);
}

TEST(Zahl, Gruppiert) {
    EXPECT_EQ(Gruppiert(0), "0");
    EXPECT_EQ(Gruppiert(999), "999");
    EXPECT_EQ(Gruppiert(-1000), "-1.000");
    EXPECT_EQ(Gruppiert(-100), "-100");
    EXPECT_EQ(Gruppiert(1234567), "1.234.567");
    EXPECT_EQ(Gruppiert(INT64_MIN), "-9.223.372.036.854.775.808");
}

TEST(Datum, Wahrheitstafel) {
    const struct {
        std::string_view Text;
        std::string_view Punkt;  // empty: no date
    } Fälle[] = {
        {"1.2.03", "01.02.2003 00:00:00"},
        {"01.02.29", "01.02.2029 00:00:00"},
        {"01.02.30", "01.02.1930 00:00:00"},
        {"31.12.1999 23:59:59", "31.12.1999 23:59:59"},
        {"31.12.1999 7:5", "31.12.1999 07:05:00"},
        {" 1.1.2000  0:0:0 ", "01.01.2000 00:00:00"},
        {"29.02.2000", "29.02.2000 00:00:00"},
        {"2024-02-29", "29.02.2024 00:00:00"},
        {"2024-02-29T12:30", "29.02.2024 12:30:00"},
        {"2024-02-29 12:30:01", "29.02.2024 12:30:01"},
        {"29.02.1900", ""},
        {"31.04.2000", ""},
        {"0.1.2000", ""},
        {"1.13.2000", ""},
        {"1.1.200", ""},
        {"1.1.0000", ""},
        {"1.1.20000", ""},
        {"1.1.2", ""},
        {"1.1", ""},
        {"1.1.", ""},
        {"1.1.2000 24:00", ""},
        {"1.1.2000 1:60", ""},
        {"1.1.2000 1:1:60", ""},
        {"1.1.2000 1", ""},
        {"1.1.2000 1:", ""},
        {"1.1.2000T1:00", ""},
        {"1.1.20001:00", ""},
        {"2024-2-9", ""},
        {"2024-02-30", ""},
        {"2024-02-29T", ""},
        {"1.1.2000 1:00 x", ""},
        {"12:30", ""},
        {"", ""},
        {"heute", ""},
        {"1/2/2003", ""},
        {"001.1.2000", ""},
        {"-1.1.2000", ""},
        {"99999999999.1.2000", ""},
    };
    for (const auto& Fall : Fälle) {
        const auto Punkt = DatumLesen(Fall.Text);
        EXPECT_EQ(Punkt ? DatumZeitText(*Punkt) : "", Fall.Punkt) << "'" << Fall.Text << "'";
    }
    EXPECT_EQ(DatumZeitText(*DatumLesen(UngültigesDatum)), UngültigesDatum);
}

TEST(Datum, Textformen) {
    const Zeitpunkt Punkt{812, 3, 4, 5, 6, 7};
    EXPECT_EQ(DatumText(Punkt), "04.03.0812");
    EXPECT_EQ(DatumSortierText(Punkt), "08120304");
    EXPECT_EQ(ZeitSortierText(Punkt), "08120304050607");
}

TEST(Datum, SekundenHinUndZurückÜberEinJahrtausend) {
    EXPECT_EQ(Kalendersekunden({1970, 1, 1, 0, 0, 0}), 0);
    EXPECT_EQ(Kalendertage({2000, 3, 1, 0, 0, 0}), 11017);
    EXPECT_EQ(AusKalendersekunden(-1), (Zeitpunkt{1969, 12, 31, 23, 59, 59}));
    for (std::int64_t Sekunden = -20'000'000'000; Sekunden < 20'000'000'000; Sekunden += 7'654'321) {
        EXPECT_EQ(Kalendersekunden(AusKalendersekunden(Sekunden)), Sekunden);
    }
    EXPECT_EQ(AusKalendersekunden(INT64_MAX), (Zeitpunkt{9999, 12, 31, 23, 59, 59}));
    EXPECT_EQ(AusKalendersekunden(INT64_MIN), (Zeitpunkt{1, 1, 1, 0, 0, 0}));
}

TEST(Datum, ZwischenraumZähltGrenzenAuchVor1970) {
    const Zeitpunkt Abend{1969, 12, 31, 23, 59, 59};
    const Zeitpunkt Morgen{1970, 1, 1, 0, 0, 0};
    EXPECT_EQ(TageZwischen(Abend, Morgen), 1);
    EXPECT_EQ(StundenZwischen(Abend, Morgen), 1);
    EXPECT_EQ(MinutenZwischen(Morgen, Abend), -1);
    EXPECT_EQ(StundenZwischen({1960, 1, 1, 1, 0, 0}, {1960, 1, 1, 1, 59, 59}), 0);
    EXPECT_EQ(TageZwischen({2023, 12, 31, 0, 0, 0}, {2024, 12, 31, 23, 0, 0}), 366);
}

}  // namespace
}  // namespace liedwerk
