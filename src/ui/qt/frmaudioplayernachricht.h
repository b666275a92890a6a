// frmAudioplayerNachricht: reminds of the audio player that now plays beside this program.
#pragma once

#include <QCheckBox>
#include <QDialog>

namespace liedwerk {

class frmAudioplayerNachricht final : public QDialog {
  public:
    frmAudioplayerNachricht(const QString& Spieler, QWidget* Eltern);
    // True when the person wants to see it no more.
    bool NichtMehrZeigen() const { return chkNichtMehrZeigen->isChecked(); }

  private:
    QCheckBox* chkNichtMehrZeigen;
};

}  // namespace liedwerk
