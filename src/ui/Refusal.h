#pragma once
#include "MessageBox.h"
#include <QString>
#include <optional>

// Why a service did not do what it was asked: the user's message, the objectName of the
// control that gets the focus, and the icon of the message.
struct Refusal {
    Refusal() = default;
    Refusal(QString message, QString field = {}, Msg::Icon icon = Msg::Icon::Information, QString title = {})
        : message(std::move(message)), field(std::move(field)), icon(icon), title(std::move(title)) {}

    // A refusal that warns (exclamation icon), and an error that stopped the work.
    static Refusal warning(QString message, QString field = {}) {
        return Refusal(std::move(message), std::move(field), Msg::Icon::Exclamation);
    }
    static Refusal error(QString message) { return Refusal(std::move(message), {}, Msg::Icon::Critical); }

    QString message;
    QString field;
    Msg::Icon icon = Msg::Icon::Information;
    QString title;
};

// A service's answer: nothing when it succeeded.
using Refused = std::optional<Refusal>;
