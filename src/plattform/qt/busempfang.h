// Receives signals of a message bus. Qt delivers these to slots only, which need its meta compiler; that one
// cannot read umlauts, so this class stands in a file of its own that has none.
#pragma once

#include <QDBusMessage>
#include <QObject>
#include <functional>

namespace liedwerk {

class Busempfang final : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;
    std::function<void(const QDBusMessage&)> Empfangen;

  public slots:
    void nachricht(const QDBusMessage& Botschaft) {
        if (Empfangen) Empfangen(Botschaft);
    }
};

}  // namespace liedwerk
