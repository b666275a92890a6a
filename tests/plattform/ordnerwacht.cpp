// Watched folders on the real system.
#include "plattform/linux/ordnerwacht.h"

#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <mutex>
#include <optional>

#include "tests/dateien/probeordner.h"

namespace liedwerk {
namespace {

using namespace std::chrono_literals;
using test::Probeordner;

// Takes the messages of a watch, which come from its thread.
struct Empfang {
    std::mutex Sperre;
    std::condition_variable Neu;
    std::vector<Wachtmeldung> Alle;

    Wachtauftrag Auftrag(const std::string& Ordner, bool Unterordner) {
        return {{{Ordner, Unterordner}, {Ordner + "/fehlt", true}, {"C:\\Musik", true}},
                [](std::string_view Name) { return Name.ends_with(".mp3"); },
                [this](const Wachtmeldung& Meldung) {
                    const std::lock_guard Halten(Sperre);
                    Alle.push_back(Meldung);
                    Neu.notify_all();
                }};
    }
    std::optional<Wachtmeldung> Nächste(std::chrono::milliseconds Höchstens = 10s) {
        std::unique_lock Halten(Sperre);
        if (!Neu.wait_for(Halten, Höchstens, [&] { return !Alle.empty(); })) return std::nullopt;
        Wachtmeldung Erste = std::move(Alle.front());
        Alle.erase(Alle.begin());
        return Erste;
    }
};

class Wacht : public testing::Test {
  protected:
    // The folders are watched from some time after the beginning on: writes until the watch tells of it.
    void Abwarten(const std::string& Pfad) {
        for (int Versuch = 0; Versuch < 100; ++Versuch) {
            std::ofstream(Pfad) << Versuch;
            if (Post.Nächste(100ms)) break;
        }
        while (Post.Nächste(200ms)) {
        }
    }
    using Pfade = std::vector<std::string>;
    Probeordner Ordner;
    Empfang Post;
    Systemordnerwacht Wächter{Wachtmaß{.Ruhe = 60ms, .Höchstens = 2s, .Ordner = 4}};
};

TEST_F(Wacht, MeldetNachRuheWasGesuchtIstAuchInNeuenOrdnern) {
    std::filesystem::create_directories(Ordner.In("a/b"));
    Ordner.Datei("a/weg.mp3", "x");
    Wächter.Beginnen(Post.Auftrag(Ordner.In("a"), true));
    Abwarten(Ordner.In("a/b/an.mp3"));

    Ordner.Datei("a/b/neu.mp3", "x");
    Ordner.Datei("a/b/bild.jpg", "x");
    std::filesystem::remove(Ordner.In("a/weg.mp3"));
    const auto Erste = Post.Nächste();
    ASSERT_TRUE(Erste);
    EXPECT_EQ(Erste->Pfade, (Pfade{Ordner.In("a/b/neu.mp3"), Ordner.In("a/weg.mp3")}))
        << "one message for both";
    EXPECT_FALSE(Erste->Ungenau || Erste->Unvollständig);

    std::filesystem::create_directories(Ordner.In("fern/tief"));
    Ordner.Datei("fern/tief/c.mp3", "x");
    std::filesystem::rename(Ordner.In("fern"), Ordner.In("a/fern"));
    EXPECT_EQ(Post.Nächste().value().Pfade, Pfade{Ordner.In("a/fern/tief/c.mp3")});
    Ordner.Datei("a/fern/tief/d.mp3", "x");
    EXPECT_EQ(Post.Nächste().value().Pfade, Pfade{Ordner.In("a/fern/tief/d.mp3")});
    std::filesystem::rename(Ordner.In("a/fern"), Ordner.In("fern"));
    EXPECT_TRUE(Post.Nächste().value().Ungenau);

    // The fifth folder is one too many; told once.
    std::filesystem::create_directories(Ordner.In("a/c/d/e"));
    EXPECT_TRUE(Post.Nächste().value().Unvollständig);
    std::filesystem::create_directories(Ordner.In("a/f"));

    Wächter.Beenden();
    Ordner.Datei("a/b/spät.mp3", "x");
    EXPECT_FALSE(Post.Nächste(300ms));
}

TEST_F(Wacht, OhneUnterordnerZähltNurDerOrdnerSelbst) {
    std::filesystem::create_directories(Ordner.In("a/b"));
    std::filesystem::create_symlink(Ordner.In("a"), Ordner.In("verweis"));
    Wächter.Beginnen(Post.Auftrag(Ordner.In("verweis"), false));
    Abwarten(Ordner.In("a/an.mp3"));
    Ordner.Datei("a/b/neu.mp3", "x");
    Ordner.Datei("a/neu.mp3", "x");
    EXPECT_EQ(Post.Nächste().value().Pfade, Pfade{Ordner.In("verweis/neu.mp3")});
}

}  // namespace
}  // namespace liedwerk
