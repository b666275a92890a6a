#include <gtest/gtest.h>
#include <string_view>

#include "medien/schreibweise.h"

namespace liedwerk {
namespace {

TEST(Schreibweise, HebtWortanfängeUndLässtWebadressenKlein) {
    struct Fall {
        std::string_view Text;
        bool NurErster;
        std::string_view Erwartet;
    };
    const Fall Fälle[] = {
        {"", false, ""},
        {"DAS LIED", false, "Das Lied"},
        {"DAS LIED", true, "Das lied"},
        {"über die äpfel", false, "Über Die Äpfel"},
        {"a-b (live) [x]&y", true, "A-B (Live) [X]&Y"},
        {"(klammer zuerst)", true, "(Klammer zuerst)"},
        {"don't rock_it o;k a/c\\d §e", false, "Don't Rock_it O;k A/c\\d §e"},
        {"HTTP://WWW.X.DE www.y", false, "http://www.x.de www.y"},
        {"#1 HIT", true, "#1 hit"},
        {"groß\xFF klein", false, "Groß\xFF Klein"},
    };
    for (const Fall& f : Fälle)
        EXPECT_EQ(Schreibweise(f.Text, f.NurErster), f.Erwartet) << f.Text;
}

}  // namespace
}  // namespace liedwerk
