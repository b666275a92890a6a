#include "plattform/pruefsumme.h"

#include <QCryptographicHash>
#include <vector>

#include "basis/datei.h"

namespace liedwerk {

std::string DateiPrüfsumme(std::string_view Pfad) {
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    if (!Datei.Offen()) return {};
    constexpr std::size_t Block = std::size_t{1} << 20;
    std::vector<char> Puffer(Block);
    QCryptographicHash Summe(QCryptographicHash::Sha256);
    for (std::uint64_t Stelle = 0; Stelle < Datei.Größe();) {
        const std::size_t Gelesen = Datei.Lesen(Puffer.data(), Stelle, Block);
        if (Gelesen == 0) return {};
        Summe.addData({Puffer.data(), static_cast<qsizetype>(Gelesen)});
        Stelle += Gelesen;
    }
    return Summe.result().toHex().toStdString();
}

}  // namespace liedwerk
