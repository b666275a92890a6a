#include "plattform/qt/medienauskunft.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <aifffile.h>
#include <algorithm>
#include <apefile.h>
#include <asffile.h>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <flacfile.h>
#include <future>
#include <id3v2framefactory.h>
#include <iterator>
#include <memory>
#include <mp4file.h>
#include <opusfile.h>
#include <tdebuglistener.h>
#include <thread>
#include <tiostream.h>
#include <wavfile.h>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr std::chrono::seconds Lesefrist(10);

// A file of ours as TagLib reads it: bounded by its real size, by time, and by what may be read of it in all.
// A reader that gets no more bytes comes to its end.
class Lesestrom final : public TagLib::IOStream {
  public:
    explicit Lesestrom(std::string_view Pfad) : Name(Pfad), Datei(Lesedatei::Öffnen(Pfad)) {}
    TagLib::FileName name() const override { return Name.c_str(); }
    TagLib::ByteVector readBlock(unsigned long Länge) override {
        const auto Größe = static_cast<unsigned long>(length());
        if (Stelle >= Größe || Lesungen == 0 || std::chrono::steady_clock::now() > Ende) return {};
        if (Stapelhöhe() > HöchsteStapelhöhe) return {};
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
    // How much of the thread's stack lies between the one who made this object and the reader that asks now.
    std::uintptr_t Stapelhöhe() const {
        const auto Hier = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
        return Hier < Stapelanfang ? Stapelanfang - Hier : 0;
    }
    // Parts that hold parts are read by recursion; a broken file nests them without end.
    static constexpr std::uintptr_t HöchsteStapelhöhe = 1UL << 20U;
    std::uintptr_t Stapelanfang = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    // More than the headers and tags of any sound file. A broken one may hold millions of empty chunks or
    // gigabytes of attributes, and TagLib keeps them all.
    unsigned long Bytes = 64UL << 20U;
    unsigned long Lesungen = 100000;
    std::string Name;
    Lesedatei Datei;
    unsigned long Stelle = 0;
    std::chrono::steady_clock::time_point Ende = std::chrono::steady_clock::now() + Lesefrist;
};

// TagLib tells the world about broken files on standard error, unless somebody listens.
class Stille final : public TagLib::DebugListener {
    void printMessage(const TagLib::String&) override {}
};

std::string Utf8(const TagLib::String& Text) {
    return Text.to8Bit(true);
}

template <class Format>
std::unique_ptr<TagLib::File> Als(TagLib::IOStream& Strom) {
    return std::make_unique<Format>(&Strom);
}

std::unique_ptr<TagLib::File> AlsFlac(TagLib::IOStream& Strom) {
    return std::make_unique<TagLib::FLAC::File>(&Strom, TagLib::ID3v2::FrameFactory::instance());
}

struct Formatleser {
    std::string_view Endung;
    std::unique_ptr<TagLib::File> (*Öffnen)(TagLib::IOStream&);
};
constexpr Formatleser Leser[] = {
    {".wma", Als<TagLib::ASF::File>},         {".wmf", Als<TagLib::ASF::File>},
    {".wav", Als<TagLib::RIFF::WAV::File>},   {".flac", AlsFlac},
    {".opus", Als<TagLib::Ogg::Opus::File>},  {".m4a", Als<TagLib::MP4::File>},
    {".m4b", Als<TagLib::MP4::File>},         {".mp4", Als<TagLib::MP4::File>},
    {".ape", Als<TagLib::APE::File>},         {".aif", Als<TagLib::RIFF::AIFF::File>},
    {".aiff", Als<TagLib::RIFF::AIFF::File>},
};

std::unique_ptr<TagLib::File> Öffnen(TagLib::IOStream& Strom, std::string_view Pfad) {
    const auto* const Fund = std::ranges::find_if(
        Leser, [&](const Formatleser& Einer) { return GleichOhneGroß(EndungVon(Pfad), Einer.Endung); });
    return Fund == std::end(Leser) ? nullptr : Fund->Öffnen(Strom);
}

Medienangaben Angaben(const TagLib::Tag* Texte, const TagLib::AudioProperties* Daten) {
    Medienangaben Ergebnis;
    if (Daten != nullptr) {
        Ergebnis.Dauer = Daten->lengthInMilliseconds() / 1000.0;
        Ergebnis.Bitrate = Daten->bitrate();
        Ergebnis.Frequenz = Daten->sampleRate();
        Ergebnis.Kanäle = Daten->channels();
    }
    if (Texte != nullptr) {
        Ergebnis.Titel = Utf8(Texte->title());
        Ergebnis.Interpret = Utf8(Texte->artist());
        Ergebnis.Kommentar = Utf8(Texte->comment());
        Ergebnis.Album = Utf8(Texte->album());
        Ergebnis.Genre = Utf8(Texte->genre());
        Ergebnis.Jahr = Texte->year();
        Ergebnis.Titelnummer = Texte->track();
    }
    return Ergebnis;
}

std::optional<Medienangaben> DateiBefragen(std::string_view Pfad) {
    Lesestrom Strom(Pfad);
    if (!Strom.isOpen()) return std::nullopt;
    const auto Datei = Öffnen(Strom, Pfad);
    if (!Datei || !Datei->isValid()) return std::nullopt;
    return Angaben(Datei->tag(), Datei->audioProperties());
}

}  // namespace

TaglibAuskunft::TaglibAuskunft() {
    static Stille Hörer;
    TagLib::setDebugListener(&Hörer);
}

std::optional<Medienangaben> TaglibAuskunft::Lesen(std::string_view Pfad,
                                                   const std::function<bool()>& Weiter) const {
    return InFristLesen([Pfad = std::string(Pfad)] { return DateiBefragen(Pfad); }, Lesefrist, Weiter);
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
    try {
        std::thread([Stand, Auftrag = std::move(Auftrag)]() mutable {
            Auftrag();
            if (Stand->exchange(Fertig) == Aufgegeben) --Überfällig;
        }).detach();
    } catch (const std::system_error&) {
        return std::nullopt;  // the system gives no thread
    }

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
