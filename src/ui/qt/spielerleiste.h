// The player panel of the main window: title, position, volume, balance and the buttons of a running player.
#pragma once

#include <QLabel>
#include <QSlider>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
#include <functional>

#include "abspielen/spieler.h"

namespace liedwerk {

// A slider whose handle goes where it is clicked. Losgelassen comes when the person has let it go: at the
// mouse button, a moment after the last key or turn of the wheel, or when the focus leaves it.
class Spielerregler final : public QSlider {
  public:
    explicit Spielerregler(QWidget* Eltern);
    std::function<void()> Losgelassen;
    // True while the person holds it: nobody else may set its value then.
    bool Gehalten() const { return isSliderDown() || tmrLosgelassen.isActive(); }

  protected:
    void mousePressEvent(QMouseEvent* Ereignis) override;
    void focusOutEvent(QFocusEvent* Ereignis) override;

  private:
    void Loslassen();
    QTimer tmrLosgelassen;
};

class Spielerleiste final : public QWidget {
  public:
    explicit Spielerleiste(QWidget* Eltern);

    // What the person does. Springen in seconds; Befehl with its number.
    std::function<void(int)> Befehl;
    std::function<void(int)> Springen;
    std::function<void(int)> LautstärkeGesetzt;
    std::function<void(int)> BalanceGesetzt;

    void Zeigen(const Spielerstand& Stand, bool Erkannt, bool Blinken);
    void ReglerStellen(int Lautstärke, int Balance);
    int Lautstärke() const { return hscrlVolume->value(); }
    int Balance() const { return hscrlBalance->value(); }

  protected:
    void resizeEvent(QResizeEvent* Ereignis) override;
    void changeEvent(QEvent* Ereignis) override;

  private:
    QToolButton* KnopfAnlegen(const QString& Name, const QString& Text, const char* Bild, int Nummer);
    Spielerregler* ReglerAnlegen(const QString& Name, const QString& Hörname, int Von, int Bis);
    void Freigeben(const Spielerstand& Stand);
    void TitelKürzen();
    void PlatzFestlegen();
    void tmrBlinken_Timer();
    void BlinkenBeenden();

    QString Titel;
    QLabel* lblTitel = nullptr;
    QLabel* lblTitelposition = nullptr;
    Spielerregler* hscrlTrackPos;
    Spielerregler* hscrlVolume;
    Spielerregler* hscrlBalance;
    QToolButton* cmdWinampVorheriger;
    QToolButton* cmdAbspielen;
    QToolButton* cmdAbspielenStopp;
    QToolButton* cmdWinampNächster;
    QToolButton* cmdWinampEinstellungen;
    QToolButton* cmdWinampEnde;
    QTimer tmrBlinken;
};

}  // namespace liedwerk
