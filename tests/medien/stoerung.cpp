// Every writing system call of every way of saving and removing tags fails in turn, or is the last one before
// the process dies: the file is the old or the new one afterwards, and nothing of ours lies beside it unsaid.
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "medien/id3v1.h"
#include "medien/id3v2.h"
#include "medien/tagdatei.h"
#include "medien/tagrettung.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"
#include "tests/medien/umgebung.h"
#include "werkzeuge/tagbau.h"

namespace {

enum class Art { Keine, Einmal, VonDaAn, Halb, Absturz };
Art Störung = Art::Keine;
int Aufrufe = 0;       // writing calls since the counting began
int GestörterRuf = 0;  // 1-based

// Counts a writing call; true when it is to fail.
bool Gestört() {
    if (Störung == Art::Keine) return false;
    ++Aufrufe;
    if (Aufrufe < GestörterRuf || (Aufrufe > GestörterRuf && Störung != Art::VonDaAn)) return false;
    if (Störung == Art::Absturz) ::_exit(0);
    errno = EIO;
    return true;
}
// A write that may also stop in its midst, before the next one finds the disk full.
template <class Rufen>
ssize_t Geschrieben(std::size_t Anzahl, Rufen&& Schreiben) {
    if (Störung == Art::Halb && Aufrufe + 1 == GestörterRuf && Anzahl > 1) {
        ++Aufrufe;
        ++GestörterRuf;
        return Schreiben(Anzahl / 2);
    }
    return Gestört() ? -1 : Schreiben(Anzahl);
}

}  // namespace

// The program's own definitions come before those of the C library.
extern "C" {
ssize_t write(int Griff, const void* Bytes, size_t Anzahl) {
    return Geschrieben(Anzahl, [&](size_t n) { return syscall(SYS_write, Griff, Bytes, n); });
}
ssize_t pwrite(int Griff, const void* Bytes, size_t Anzahl, off_t Stelle) {
    return Geschrieben(Anzahl, [&](size_t n) { return syscall(SYS_pwrite64, Griff, Bytes, n, Stelle); });
}
int fallocate(int Griff, int Weise, off_t Stelle, off_t Länge) {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_fallocate, Griff, Weise, Stelle, Länge));
}
// Nothing here survives a loss of power, so the disk need not be waited for.
int fsync(int) {
    return Gestört() ? -1 : 0;
}
int ftruncate(int Griff, off_t Länge) noexcept {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_ftruncate, Griff, Länge));
}
int rename(const char* Alt, const char* Neu) noexcept {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_rename, Alt, Neu));
}
int unlink(const char* Name) noexcept {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_unlink, Name));
}
int fchmod(int Griff, mode_t Rechte) noexcept {
    return Gestört() ? -1 : static_cast<int>(syscall(SYS_fchmod, Griff, Rechte));
}
}

namespace liedwerk {
namespace {

using namespace tagbau;
namespace fs = std::filesystem;

struct Weg {
    std::string_view Name;
    std::string Start;
    std::function<bool(const std::string& Pfad, std::string& Meldung, const Schreibrahmen& Rahmen)> Ändern;
};

Datensatz Fülle(std::size_t Länge) {
    Datensatz Satz;
    Id3v2Leeren(Satz);
    Satz.Titel = Satz.V2Titel = std::string(Länge, 't');
    return Satz;
}

// Every kind of tag in place, growing, shrinking and removed; the sound is more than one block long.
std::vector<Weg> Wege() {
    const std::string Ton = std::string((std::size_t{1} << 20U) + 9, '\x81') + MpegRahmen({}, 3);
    const std::string V1 = Id3v1Block({.Titel = "alt"});
    const std::string V2 = Id3v2Tag(3, Id3v2Textrahmen("TIT2", "alt"), 300);
    const std::string Text = LyricsV2(LyricsFeld("LYR", std::string(100, 'l')));
    const auto Id3v1 = [](auto& Pfad, auto& Meldung, auto&) {
        return Id3v1Schreiben(Pfad, Id3v1BlockBilden(Fülle(9)), Meldung);
    };
    const auto Id3v2 = [](std::size_t Länge, bool Modern) {
        return [=](auto& Pfad, auto& Meldung, auto& Rahmen) {
            return Id3v2Schreiben(Pfad, Fülle(Länge), {.TAGsModern = Modern}, Meldung, Rahmen);
        };
    };
    const auto Lyrics = [](std::size_t Länge) {
        return [=](auto& Pfad, auto& Meldung, auto& Rahmen) {
            return LyricsSchreiben(Pfad, std::string(Länge, 'm'), Meldung, Rahmen);
        };
    };
    const auto Ohne = [](Tagblock Block) {
        return [=](auto& Pfad, auto& Meldung, auto& Rahmen) {
            return TagAusDateiEntfernen(Pfad, Block, {}, Meldung, Rahmen);
        };
    };
    return {
        {"ID3v1 anhängen", V2 + Ton, Id3v1},
        {"ID3v1 am Ort", V2 + Ton + Text + V1, Id3v1},
        {"ID3v1 entfernen", V2 + Ton + Text + V1, Ohne(Tagblock::Id3v1)},
        {"ID3v2 neu", Ton + V1, Id3v2(50, false)},
        {"ID3v2 am Ort", V2 + Ton, Id3v2(50, false)},
        {"ID3v2 wächst", V2 + Ton + V1, Id3v2(5000, false)},
        {"ID3v2 nicht vorn", "Vorspann" + V2 + Ton, Id3v2(5000, false)},
        {"ID3v2 wächst, moderner Weg", V2 + Ton + V1, Id3v2(5000, true)},
        {"ID3v2 entfernen", V2 + Ton + V1, Ohne(Tagblock::Id3v2)},
        {"Lyrics anhängen", Ton, Lyrics(50)},
        {"Lyrics wächst", Ton + Text + V1, Lyrics(500)},
        {"Lyrics schrumpft", Ton + Text + V1, Lyrics(20)},
        {"Lyrics entfernen", Ton + Text + V1, Ohne(Tagblock::Lyrics)},
    };
}

class Störungen : public Medien {
  protected:
    Störungen() { fs::create_directory(Programmordner); }
    std::string Bereitlegen(const Weg& Einer, bool MehrereNamen) {
        fs::remove(Zweiter);
        const std::string Pfad = Anlegen("t.mp3", Einer.Start);
        if (MehrereNamen) fs::create_hard_link(Pfad, Zweiter);
        return Pfad;
    }
    bool Stören(const Weg& Einer, const std::string& Pfad, Art Wie, int Ruf) {
        Meldung.clear();
        GestörterRuf = Ruf;
        Aufrufe = 0;
        Störung = Wie;
        const bool Gelungen = Einer.Ändern(Pfad, Meldung, {{}, Programmordner.string()});
        Störung = Art::Keine;
        return Gelungen;
    }
    static std::string Inhalt(const std::string& Pfad) { return DateiLesen(Pfad).value_or("(fehlt)"); }
    // What lies beside the file and its other name.
    std::vector<std::string> Hilfsdateien() const {
        std::vector<std::string> Namen;
        for (const auto& Eintrag : fs::directory_iterator(Ordner)) {
            const std::string Pfad = Eintrag.path().string();
            if (Pfad.ends_with("~lwitmp") || Pfad.ends_with("~lwineu")) Namen.push_back(Pfad);
        }
        return Namen;
    }
    void Aufräumen() {
        for (const auto& Wo : {Ordner, Programmordner}) {
            for (const auto& Eintrag : fs::directory_iterator(Wo))
                if (Eintrag.is_regular_file()) fs::remove(Eintrag);
        }
    }
    fs::path Programmordner = Ordner / "programm";
    fs::path Zweiter = Ordner / "zweiter.mp3";
    std::string Meldung;
    speicher::Person Person;
};

TEST_F(Störungen, NachJedemFehlschlagStehtDieAlteOderDieNeueDateiDa) {
    for (const Weg& Einer : Wege()) {
        for (const bool MehrereNamen : {false, true}) {
            SCOPED_TRACE(std::string(Einer.Name) + (MehrereNamen ? ", zwei Namen" : ""));
            std::string Pfad = Bereitlegen(Einer, MehrereNamen);
            ASSERT_TRUE(Stören(Einer, Pfad, Art::Einmal, 1000)) << Meldung;
            const int Anzahl = Aufrufe;
            const std::string Neu = Inhalt(Pfad);
            ASSERT_GE(Anzahl, 2);
            for (const Art Wie : {Art::Einmal, Art::VonDaAn, Art::Halb}) {
                for (int Ruf = 1; Ruf <= Anzahl; ++Ruf) {
                    SCOPED_TRACE(std::to_string(static_cast<int>(Wie)) + "/" + std::to_string(Ruf));
                    Pfad = Bereitlegen(Einer, MehrereNamen);
                    const bool Gelungen = Stören(Einer, Pfad, Wie, Ruf);
                    EXPECT_EQ(Gelungen, Meldung.empty()) << Meldung;
                    for (const std::string& Rest : Hilfsdateien())
                        EXPECT_NE(Meldung.find(Rest), std::string::npos) << Meldung;
                    // A file with two names may be torn, then its whole content lies beside it.
                    if (!Gelungen) SpeichernVollenden(Pfad, Person);
                    const std::string Danach = Inhalt(Pfad);
                    EXPECT_TRUE(Danach == Neu || (!Gelungen && Danach == Einer.Start)) << Danach.size();
                    EXPECT_EQ(fs::hard_link_count(Pfad), MehrereNamen ? 2U : 1U);
                    Aufräumen();
                }
            }
        }
    }
}

TEST_F(Störungen, NachJedemAbsturzMachtDerNächsteStartDieDateiGanz) {
    int Zerrissene = 0;
    for (const Weg& Einer : Wege()) {
        for (const bool MehrereNamen : {false, true}) {
            SCOPED_TRACE(std::string(Einer.Name) + (MehrereNamen ? ", zwei Namen" : ""));
            std::string Pfad = Bereitlegen(Einer, MehrereNamen);
            ASSERT_TRUE(Stören(Einer, Pfad, Art::Einmal, 1000)) << Meldung;
            const int Anzahl = Aufrufe;
            const std::string Neu = Inhalt(Pfad);
            for (int Ruf = 1; Ruf <= Anzahl; ++Ruf) {
                Pfad = Bereitlegen(Einer, MehrereNamen);
                const pid_t Kind = ::fork();
                if (Kind == 0) {
                    Stören(Einer, Pfad, Art::Absturz, Ruf);
                    ::_exit(1);
                }
                int Ende = 0;
                ASSERT_EQ(::waitpid(Kind, &Ende, 0), Kind);
                const std::string Vorher = Inhalt(Pfad);
                const bool Ganz = Vorher == Neu || Vorher == Einer.Start;
                EXPECT_TRUE(Ganz || MehrereNamen);
                Zerrissene += Ganz ? 0 : 1;
                Person.Meldungen.clear();
                // By the mark at every second time, else by the next read alone.
                if (Ruf % 2 == 0) {
                    UnterbrocheneVollenden(Programmordner.string(), Systemordnerleser(), Person);
                    EXPECT_TRUE(fs::is_empty(Programmordner));
                } else {
                    SpeichernVollenden(Pfad, Person);
                }
                const std::string Danach = Inhalt(Pfad);
                EXPECT_TRUE(Danach == Neu || Danach == Einer.Start) << Ruf;
                EXPECT_EQ(Danach != Vorher, !Person.Meldungen.empty() && Vorher != Neu) << Ruf;
                EXPECT_TRUE(Person.Gefragt.empty());
                EXPECT_FALSE(DateiExistiert(TagGesichertname(Pfad)));
                Aufräumen();
            }
        }
    }
    EXPECT_GE(Zerrissene, 8) << "once for each way that writes a file with two names anew";
}

}  // namespace
}  // namespace liedwerk
