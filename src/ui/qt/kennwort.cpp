#include "ui/qt/kennwort.h"

#include <QCryptographicHash>
#include <QPasswordDigestor>
#include <QRandomGenerator>
#include <QStringList>
#include <array>
#include <optional>

#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Runden = 300000;
// A value that asks for more would hang the program at its start.
constexpr int HöchstensRunden = 1000000;
constexpr int Schlüssellänge = 32;  // bytes, the length of SHA-256
constexpr int Mindestsalz = 8;

struct Ablage {
    int Runden = 0;
    QByteArray Salz;
    QByteArray Schlüssel;
};

QByteArray Strecken(const QString& Kennwort, const QByteArray& Salz, int Anzahl) {
    // The same letter may be typed as one character or as two.
    const QByteArray Zeichen = Kennwort.normalized(QString::NormalizationForm_C).toUtf8();
    return QPasswordDigestor::deriveKeyPbkdf2(QCryptographicHash::Sha256, Zeichen, Salz, Anzahl,
                                              Schlüssellänge);
}

std::optional<Ablage> Lesen(std::string_view Abgelegt) {
    const QStringList Teile = QtText(Abgelegt).split(u'$');
    if (Teile.size() != 4 || Teile[0] != u"pbkdf2-sha256"_s) return {};
    Ablage Wert;
    bool Zahl = false;
    Wert.Runden = Teile[1].toInt(&Zahl);
    Wert.Salz = QByteArray::fromHex(Teile[2].toLatin1());
    Wert.Schlüssel = QByteArray::fromHex(Teile[3].toLatin1());
    if (!Zahl || Wert.Runden < 1 || Wert.Runden > HöchstensRunden || Wert.Salz.size() < Mindestsalz ||
        Wert.Schlüssel.size() != Schlüssellänge)
        return {};
    return Wert;
}

// In a time that does not tell how many characters are right.
bool Gleich(const QByteArray& A, const QByteArray& B) {
    if (A.size() != B.size()) return false;
    unsigned Verschieden = 0;
    for (qsizetype Stelle = 0; Stelle < A.size(); ++Stelle)
        Verschieden |= static_cast<unsigned char>(A[Stelle]) ^ static_cast<unsigned char>(B[Stelle]);
    return Verschieden == 0;
}

}  // namespace

std::string KennwortAblegen(const QString& Kennwort) {
    std::array<quint32, 4> Zufall{};
    QRandomGenerator::system()->fillRange(Zufall.data(), static_cast<qsizetype>(Zufall.size()));
    const QByteArray Salz(reinterpret_cast<const char*>(Zufall.data()), sizeof Zufall);
    return Utf8Text(u"pbkdf2-sha256$%1$%2$%3"_s.arg(Runden).arg(
        QLatin1String(Salz.toHex()), QLatin1String(Strecken(Kennwort, Salz, Runden).toHex())));
}

Kennwortprüfung KennwortPrüfen(std::string_view Abgelegt, const QString& Kennwort) {
    const auto Wert = Lesen(Abgelegt);
    if (!Wert) return Kennwortprüfung::Unlesbar;
    return Gleich(Strecken(Kennwort, Wert->Salz, Wert->Runden), Wert->Schlüssel) ? Kennwortprüfung::Richtig
                                                                                 : Kennwortprüfung::Falsch;
}

bool KennwortLesbar(std::string_view Abgelegt) {
    return Lesen(Abgelegt).has_value();
}

}  // namespace liedwerk
