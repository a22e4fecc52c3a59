#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QDate>
#include <QString>
#include <optional>

// An employee as the dialog edits it.
struct EmployeeInput {
    QString code, name;
    bool male = true;
    QDate born;
    QString phone, description, idCard, address, email, fax, postCode, movePhone;
    int state = 0; // 0 在职, 1 停职
};

// What to do with the stored photo: keep it, clear it, or replace it by a picture file.
struct PhotoChange {
    enum Kind { Keep, Clear, File } kind = Keep;
    QString path;
};

struct EmployeeSaved {
    QString id;
    Refused refusal;
    bool ok() const { return !refusal; }
};

enum class CommissionRun { NothingToDo, Done, Failed };

// Today's commission rate of each line's goods times its quantity, for every line credited to
// someone (an empty name and voided lines included; goods deleted since give 0), in one
// transaction. Each line is computed from scratch, so a second run gives the same figures.
// Returns the lines rewritten. Throws DbError.
int RecalcCommissionLines(Db& db = DB());

// Employees: the staff a sale can be credited to. They do not sign in.
class EmployeeService {
  public:
    explicit EmployeeService(Db& db = DB()) : m_db(db) {}

    Rows list() const;
    std::optional<EmployeeInput> load(const QString& id) const;
    QByteArray photo(const QString& id) const;
    static Refused validate(const EmployeeInput& in);
    // An empty id adds a new employee. Editing one deleted meanwhile writes nothing.
    EmployeeSaved save(const QString& id, const EmployeeInput& in, const PhotoChange& photo);
    // Old bill lines keep the name; nothing refers to the row.
    Refused remove(const QString& id);

    // RecalcCommissionLines for the employee list: nothing to do when no line is credited,
    // and a database error as Failed.
    CommissionRun recalcCommissions();

  private:
    Db& m_db;
};
