#include "plattform/qt/medienauskunft.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <algorithm>
#include <asffile.h>
#include <atomic>
#include <chrono>
#include <fileref.h>
#include <future>
#include <memory>
#include <tdebuglistener.h>
#include <thread>
#include <tiostream.h>
#include <wavfile.h>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr std::chrono::seconds Frist(10);

// A file of ours as TagLib reads it: bounded by its real size, by time, and by what may be read of it in all.
// A reader that gets no more bytes comes to its end.
class Lesestrom final : public TagLib::IOStream {
  public:
    explicit Lesestrom(std::string_view Pfad) : Name(Pfad), Datei(Lesedatei::Öffnen(Pfad)) {}
    TagLib::FileName name() const override { return Name.c_str(); }
    TagLib::ByteVector readBlock(unsigned long Länge) override {
        const auto Größe = static_cast<unsigned long>(length());
        if (Stelle >= Größe || Lesungen == 0 || std::chrono::steady_clock::now() > Ende) return {};
        --Lesungen;
        const auto Anzahl = static_cast<unsigned>(std::min({Länge, Größe - Stelle, Bytes}));
        Bytes -= Anzahl;
        TagLib::ByteVector Block(Anzahl, '\0');
        Block.resize(static_cast<unsigned>(Datei.Lesen(Block.data(), Stelle, Anzahl)));
        Stelle += Block.size();
        return Block;
    }
    void writeBlock(const TagLib::ByteVector&) override {}
    void insert(const TagLib::ByteVector&, unsigned long, unsigned long) override {}
    void removeBlock(unsigned long, unsigned long) override {}
    void truncate(long) override {}
    bool readOnly() const override { return true; }
    bool isOpen() const override { return Datei.Offen(); }
    void seek(long Weite, Position Ab) override {
        const long Von = Ab == Beginning ? 0 : Ab == Current ? tell() : length();
        long Neu = 0;
        // Chunk sizes of a broken file may lead anywhere.
        if (__builtin_add_overflow(Von, Weite, &Neu)) Neu = length();
        Stelle = static_cast<unsigned long>(std::clamp(Neu, 0L, length()));
    }
    long tell() const override { return static_cast<long>(Stelle); }
    long length() override { return static_cast<long>(Datei.Größe()); }

  private:
    // More than the headers and tags of any sound file. A broken one may hold millions of empty chunks or
    // gigabytes of attributes, and TagLib keeps them all.
    unsigned long Bytes = 64UL << 20U;
    unsigned long Lesungen = 100000;
    std::string Name;
    Lesedatei Datei;
    unsigned long Stelle = 0;
    std::chrono::steady_clock::time_point Ende = std::chrono::steady_clock::now() + Frist;
};

// TagLib tells the world about broken files on standard error, unless somebody listens.
class Stille final : public TagLib::DebugListener {
    void printMessage(const TagLib::String&) override {}
};

std::string Utf8(const TagLib::String& Text) {
    return Text.to8Bit(true);
}

std::unique_ptr<TagLib::File> Öffnen(TagLib::IOStream& Strom, std::string_view Pfad) {
    const auto Endung = EndungVon(Pfad);
    if (GleichOhneGroß(Endung, ".wma") || GleichOhneGroß(Endung, ".wmf"))
        return std::make_unique<TagLib::ASF::File>(&Strom);
    if (GleichOhneGroß(Endung, ".wav")) return std::make_unique<TagLib::RIFF::WAV::File>(&Strom);
    return nullptr;
}

Medienangaben Angaben(const TagLib::Tag* Texte, const TagLib::AudioProperties* Daten) {
    Medienangaben Ergebnis;
    if (Daten != nullptr) Ergebnis.Dauer = Daten->lengthInMilliseconds() / 1000.0;
    if (Texte != nullptr) {
        Ergebnis.Titel = Utf8(Texte->title());
        Ergebnis.Interpret = Utf8(Texte->artist());
        Ergebnis.Kommentar = Utf8(Texte->comment());
    }
    return Ergebnis;
}

std::optional<Medienangaben> DateiBefragen(std::string_view Pfad) {
    Lesestrom Strom(Pfad);
    if (!Strom.isOpen()) return std::nullopt;
    if (const auto Datei = Öffnen(Strom, Pfad)) {
        if (!Datei->isValid()) return std::nullopt;
        return Angaben(Datei->tag(), Datei->audioProperties());
    }
    const TagLib::FileRef Datei(&Strom);
    if (Datei.isNull()) return std::nullopt;
    return Angaben(Datei.tag(), Datei.audioProperties());
}

}  // namespace

TaglibAuskunft::TaglibAuskunft() {
    static Stille Hörer;
    TagLib::setDebugListener(&Hörer);
}

std::optional<Medienangaben> TaglibAuskunft::Lesen(std::string_view Pfad,
                                                   const std::function<bool()>& Weiter) const {
    return InFristLesen([Pfad = std::string(Pfad)] { return DateiBefragen(Pfad); }, Frist, Weiter);
}

std::optional<Medienangaben> InFristLesen(std::function<std::optional<Medienangaben>()> Arbeit,
                                          std::chrono::milliseconds Frist,
                                          const std::function<bool()>& Weiter) {
    using namespace std::chrono_literals;
    // Threads that never came back. A drive that does not answer must not collect more of them.
    static std::atomic<int> Überfällig = 0;
    constexpr int MeisteÜberfällige = 8;
    const auto* const Programm = QCoreApplication::instance();
    const bool ImFenster = Programm != nullptr && Programm->thread() == QThread::currentThread();
    static bool FensterWartet = false;  // of the application's thread alone
    if (Überfällig >= MeisteÜberfällige || (ImFenster && FensterWartet)) return std::nullopt;

    std::packaged_task Auftrag(std::move(Arbeit));
    auto Ergebnis = Auftrag.get_future();
    enum : int { Läuft, Aufgegeben, Fertig };
    const auto Stand = std::make_shared<std::atomic<int>>(Läuft);
    std::thread([Stand, Auftrag = std::move(Auftrag)]() mutable {
        Auftrag();
        if (Stand->exchange(Fertig) == Aufgegeben) --Überfällig;
    }).detach();

    const auto Ende = std::chrono::steady_clock::now() + Frist;
    const std::chrono::milliseconds Takt = ImFenster || Weiter ? 20ms : Frist;
    while (Ergebnis.wait_for(Takt) != std::future_status::ready) {
        if (std::chrono::steady_clock::now() >= Ende || (Weiter && !Weiter())) {
            ++Überfällig;
            if (Stand->exchange(Aufgegeben) == Fertig) --Überfällig;
            return std::nullopt;
        }
        if (!ImFenster) continue;
        FensterWartet = true;
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        FensterWartet = false;
    }
    return Ergebnis.get();
}

}  // namespace liedwerk
