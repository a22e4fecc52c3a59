#pragma once
#include "Db.h"
#include <QDateTime>
#include <QString>

// What the board shows for a room: the status key (also the name of its image) and label.
struct RoomStatusText {
    QString key;
    QString label;
};

// The status of a room from its stored State and lock end (Other1, "yyyy-MM-dd HH:mm").
// A lock runs out by itself: State 4 shows as locked only while its end is not before the
// minute of `now`, and as free once it is, or when the end is missing or damaged.
RoomStatusText RoomStatus(qint64 state, const QString& other1, const QDateTime& now);

// The rooms (The) and their view with type and tariff. Stateless: make one where needed.
// A condition is SQL text with ? placeholders; its values come in `params`.
class fThe {
public:
    explicit fThe(Db& db = DB()) : m_db(db) {}

    Rows GetAllByAssortType(const QString& assortID) const;
    Rows GetAll() const;
    // Rooms with PayLevelName, PayType, Price1 and MinMoney of their tariff, AssortName and
    // PayLevelID of their type; rooms without a type or tariff are kept.
    Rows GetLinkAll(const QString& condition = {}, const Params& params = {}) const;
    Rows GetLinkByID(const QString& theID) const;
    Rows GetLinkByHouseCode(const QString& code) const;
    Rows GetByID(const QString& theID) const;

private:
    Db& m_db;
};
