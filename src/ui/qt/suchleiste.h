// The search row of the main window: field box, search text, and the pause in the typing before a search.
#pragma once

#include <QComboBox>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
#include <functional>

#include "basis/einstellungen.h"
#include "core/hauptfenster.h"
#include "suche/abfrage.h"
#include "ui/qt/wertemodell.h"

namespace liedwerk {

// txtSongname: an editable combo box that tells of a key before it works on it, and looks like a line of
// text as long as it has no list.
class Suchfeld final : public QComboBox {
  public:
    explicit Suchfeld(QWidget* Eltern);
    std::function<bool(QKeyEvent*)> TasteGedrückt;  // true: the key is done with

    // The entries of the drop-down; text and caret stay, no entry is chosen.
    void ListeSetzen(std::vector<std::string> Einträge);
    const std::vector<std::string>& Liste() const { return Modell.Werte(); }
    // Chooses an entry and takes its text over, whichever was chosen before.
    void EintragWählen(int Nummer);

  protected:
    void keyPressEvent(QKeyEvent* Ereignis) override;
    void resizeEvent(QResizeEvent* Ereignis) override;
    void changeEvent(QEvent* Ereignis) override;
    void paintEvent(QPaintEvent* Ereignis) override;
    void wheelEvent(QWheelEvent* Ereignis) override;

  private:
    void EingabeAusrichten();
    Wertemodell Modell;
};

// The entries of a field box: the standard search and the columns.
QStringList Suchfeldnamen();

class Suchleiste final : public QWidget {
  public:
    // The query count is asked for at every change.
    Suchleiste(const Einstellungen& Werte, const Suchabfragen& Menge, QWidget* Eltern);

    std::function<void()> Aktualisieren;  // the refresh: search and list
    std::function<void()> Löschen;        // cmdSucheLöschen
    std::function<void()> ZurListe;       // the focus leaves for the list
    std::function<void()> TextGeändert;   // whoever changed it

    Suchzeile Lesen() const;
    // The row as the set has it: its one query, or "(Mehrere Abfragen)" and disabled. Starts no search.
    void MengeZeigen();
    void Leeren();  // first entry, empty text, enabled; starts no search
    // A text put in from elsewhere (a suggestion), searched at once.
    void TextSuchen(const QString& Text);
    // Commands that need a true list call this first: a refresh that waits runs now.
    void AusstehendesAusführen();
    void Fokussieren();
    // True when there is something for cmdSucheLöschen to do.
    bool Gefüllt() const;
    // The values of a field for the drop-down.
    std::function<std::vector<std::string>(std::string_view Feld)> Feldwerte;
    // False while a long run is active: a refresh that is due waits for its end.
    std::function<bool()> DarfSuchen;

    // SucheÄnderungSperren: changes of the text start nothing.
    bool SucheÄnderungSperren = false;

  private:
    void Vervollständigen();
    void AuswahllisteFüllen();
    void txtSongname_Change();
    bool txtSongname_KeyDown(QKeyEvent* Ereignis);
    void cboSuche_Click();
    void tmrListe_Timer();

    const Einstellungen& Werte;
    const Suchabfragen& Menge;
    QComboBox* cboSuche;
    Suchfeld* txtSongname;
    QToolButton* cmdSucheLöschen;
    QTimer tmrListe;
    bool SucheSofort = false;
    bool AutoCompleteÜberspringen = false;  // a tail that was deleted is not completed back
};

}  // namespace liedwerk
