#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QList>
#include <QString>
#include <optional>

// One code of the rights catalogue as the operator dialog lists it.
struct OperatorRight {
    QString code, name, description;
    bool granted = false;
};

// An operator as the dialog edits it: the texts as typed.
struct OperatorInput {
    QString operatorName, loginName;
    QString pw, pwRepeat; // on edit both empty keep the stored password
    QString discount = QStringLiteral("10"), closeTimeSet = QStringLiteral("0");
    QString description;
    int state = 0; // 0 可用, 1 停用
    QList<OperatorRight> rights;
};

struct OperatorSaved {
    QString id;
    Refused refusal;
    bool ok() const { return !refusal; }
};

// The built-in administrator's fixed key.
inline const QString BuiltInAdminID = QStringLiteral("qa042");
// The right that manages operators.
inline const QString ManageOperatorsRight = QStringLiteral("S01");

// Operators and their rights. A save writes the row and all its grants in one transaction;
// no save or delete may leave the venue without an active operator who manages operators.
class OperatorService {
  public:
    explicit OperatorService(Db& db = DB()) : m_db(db) {}

    Rows list() const;
    // Every code of the catalogue in its order, granted where the operator holds it; a code
    // without a row for the operator shows unchecked.
    QList<OperatorRight> rights(const QString& id) const;
    std::optional<OperatorInput> load(const QString& id) const;
    // The dialog's checks, in its order.
    static Refused validate(const OperatorInput& in);
    // An empty id adds. Editing the operator signed in also puts the limits in force.
    OperatorSaved save(const QString& id, const OperatorInput& in);
    // `loginName` is the text of the selected row.
    Refused remove(const QString& id, const QString& loginName);

  private:
    bool someoneManagesOperators() const;
    Db& m_db;
};
