// Notes to the next run. POSIX.
#include "basis/merkzettel.h"

#include <fcntl.h>
#include <unistd.h>

#include "plattform/linux/griff.h"

namespace liedwerk {

bool MerkzettelAnlegen(std::string_view Pfad, std::string_view Inhalt) {
    const auto Name = Systempfad(Pfad);
    if (!Name) return false;
    if (EigeneDatei(Pfad)) DateiLöschen(Pfad);
    const Griffhalter Griff(Beharrlich(
        [&] { return ::open(Name->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR); }));
    if (!Griff) return false;
    const auto Anzahl = Beharrlich([&] { return ::write(Griff.Wert(), Inhalt.data(), Inhalt.size()); });
    if (Anzahl == static_cast<ssize_t>(Inhalt.size())) return true;
    DateiLöschen(Pfad);
    return false;
}

}  // namespace liedwerk
