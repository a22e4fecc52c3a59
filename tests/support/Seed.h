#pragma once
#include "Db.h"
#include <QString>

// The tariff every new venue starts with.
inline const QString StandardTariff = QStringLiteral("00000000000000001");

// Rows a test builds its venue from.
inline void addRoomType(const QString& id, const QString& name, const QString& tariff = StandardTariff) {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values (?, ?, ?)"),
              {id, name, tariff});
}
inline void addRoom(const QString& id, const QString& code, const QString& type, int state = 0,
                    const QString& other1 = {}) {
    DB().exec(
        QStringLiteral("insert into The (TheID, TheCode, AssortID, State, Other1) values (?, ?, ?, ?, ?)"),
        {id, code, type, state, other1});
}
