// The description pane: the information text of the chosen file, or a hint.
//
// Reading a file may take long (a drive that spins up, a slow network), so it happens in a thread of its own
// and only when the selection has rested for a moment; an answer that nobody waits for any more is dropped.
#pragma once

#include <QLabel>
#include <QTextBrowser>
#include <QThreadPool>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "medien/infotext.h"

namespace liedwerk {

class Beschreibung final : public QWidget {
  public:
    explicit Beschreibung(QWidget* Eltern);
    ~Beschreibung() override;

    // Reads the file; runs in another thread, so it owns what it uses.
    using Auftrag = std::function<Dateiinformation()>;

    void HinweisZeigen(const QString& Text);
    // Heading at once, the text of the order as soon as it is there.
    void DateiZeigen(const QString& Titel, const QString& Untertitel, Auftrag Lesen);

  protected:
    void changeEvent(QEvent* Ereignis) override;

  private:
    void Starten();
    void TextFärben();
    void InfoZeigen(const Dateiinformation& Info);

    QLabel* lblBeschreibungTitel;
    QLabel* lblBeschreibungUntertitel;
    QTextBrowser* txtBeschreibung = nullptr;
    QTimer Ruhe;
    Auftrag Nächster;
    std::string Gezeigt;       // the information text that is shown, empty for a hint
    std::uint64_t Nummer = 0;  // of the latest order; older answers are dropped
    std::shared_ptr<const bool> Lebendig = std::make_shared<const bool>(true);
    QThreadPool Fäden;
};

// The information text as the pane shows it: "name: value" lines as a table, the others as paragraphs.
QString InfotextAlsHtml(std::string_view Text, const QColor& Blass);

}  // namespace liedwerk
