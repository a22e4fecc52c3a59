#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QString>
#include <optional>

// A goods type as its dialog edits it. The key is typed by the user.
struct WareTypeInput {
    QString wareTypeID;
    QString wareTypeName;
    bool isDoDiscount = false; // the period table applies
    bool isNomember = false;   // left out of the member discount
    bool isHC = false;         // kitchen ticket
    bool isBT = false;         // bar ticket
};

// An article as its dialog edits it: numbers as typed, the type by its key.
struct WareInput {
    QString wareTypeID; // empty when no type is chosen
    QString wareName;
    QString mnemonics;
    QString price = QStringLiteral("0");
    QString procurePrice = QStringLiteral("0");
    QString wareUnit;
    QString minNum = QStringLiteral("0");
    QString tiCheng = QStringLiteral("0");
    QString nowNum = QStringLiteral("0"); // shown only; stock moves elsewhere
};

// What a save did: the key written, or why nothing was written. `gone` is an edited row
// that no longer exists: nothing is written and there is nothing to say.
struct WareSaved {
    QString id;
    Refused refusal;
    bool gone = false;
    bool ok() const { return !refusal && !gone; }
};

// Goods types (WareType) and articles (Ware): loading, checking, saving, deleting. Each
// operation checks in the order its dialog documents and owns its transaction; the rights
// are checked by the caller.
class WareService {
  public:
    explicit WareService(Db& db = DB()) : m_db(db) {}

    // Stock on hand and the low mark are shown, and cost is left to stock receipts, only
    // while stock management is on.
    static bool stockManaged();

    Rows wareTypes() const; // every column of WareType, by key
    std::optional<WareTypeInput> loadWareType(const QString& id) const;
    static Refused validateWareType(const WareTypeInput& in);
    // A new type when `adding`, else the type of that key. A taken key or any other failure
    // gives one message with the store's reason on a second line.
    WareSaved saveWareType(const WareTypeInput& in, bool adding);
    // Refused while an article still has the type.
    Refused deleteWareType(const QString& id);

    std::optional<WareInput> loadWare(const QString& id) const;
    static Refused validateWare(const WareInput& in);
    // A new article when `id` is empty. Cost is written as given; the form keeps the stored
    // cost while stock management is on. The stock on hand is never written here.
    WareSaved saveWare(const QString& id, const WareInput& in);
    Refused deleteWare(const QString& id);

    // The goods list of the options window, of one type when `typeID` is not empty.
    Rows goodsList(const QString& typeID = {}) const;

  private:
    Db& m_db;
};

namespace WareText {
inline QString inUse() {
    return QStringLiteral("不能删除此数据，因为它已经使用！");
}
inline QString typeTaken() {
    return QStringLiteral("您输入的分类编号已存在，请重新输入！");
}
} // namespace WareText
