#include "EmployeeService.h"
#include "Format.h"
#include "Gateway.h"
#include "Money.h"
#include <QFile>

Rows EmployeeService::list() const {
    return m_db.query(QStringLiteral("select Employee.* from Employee order by Employee.EmployeeName"));
}

std::optional<EmployeeInput> EmployeeService::load(const QString& id) const {
    const Rows r = m_db.query(QStringLiteral("select * from Employee where EmployeeID=?"), {id});
    if (r.isEmpty()) return std::nullopt;
    const Row e = r.first();
    EmployeeInput in;
    in.code = e.text(QStringLiteral("Employeecode"));
    in.name = e.text(QStringLiteral("EmployeeName"));
    in.male = e.text(QStringLiteral("Sex")) != QStringLiteral("女");
    in.born = ParseTime(e.text(QStringLiteral("EmployeeBorn"))).date();
    in.phone = e.text(QStringLiteral("EmployeePhone"));
    in.description = e.text(QStringLiteral("EmployeeDesc"));
    in.idCard = e.text(QStringLiteral("IDCard"));
    in.address = e.text(QStringLiteral("EmployeeAddress"));
    in.email = e.text(QStringLiteral("email"));
    in.fax = e.text(QStringLiteral("Fax"));
    in.postCode = e.text(QStringLiteral("Postcode"));
    in.movePhone = e.text(QStringLiteral("movephone"));
    in.state = int(e.integer(QStringLiteral("State")));
    return in;
}

QByteArray EmployeeService::photo(const QString& id) const {
    return m_db.scalar(QStringLiteral("select ThisPhoto from Employee where EmployeeID=?"), {id})
        .toByteArray();
}

Refused EmployeeService::validate(const EmployeeInput& in) {
    if (in.code.trimmed().isEmpty())
        return Refusal{QStringLiteral("请输入员工编号！"), QStringLiteral("txtEmployeeCode")};
    if (in.name.trimmed().isEmpty())
        return Refusal{QStringLiteral("请输入员工姓名！"), QStringLiteral("txtEmployeeName")};
    return std::nullopt;
}

EmployeeSaved EmployeeService::save(const QString& id, const EmployeeInput& in, const PhotoChange& photo) {
    if (Refused r = validate(in)) return {{}, r};
    QByteArray picture;
    if (photo.kind == PhotoChange::File) {
        QFile f(photo.path);
        if (!f.open(QIODevice::ReadOnly))
            return {{}, Refusal::warning(QStringLiteral("无法读取照片文件：") + photo.path)};
        picture = f.readAll();
    }
    try {
        return m_db.write([&]() -> EmployeeSaved {
            QString key = id;
            if (key.isEmpty()) {
                key = FreshKey(QStringLiteral("Employee"), QStringLiteral("EmployeeID"), m_db);
                m_db.exec(QStringLiteral("insert into Employee (EmployeeID) values (?)"), {key});
            }
            const int n = m_db.exec(
                QStringLiteral(
                    "update Employee set Employeecode=?, EmployeeName=?, Sex=?, EmployeeBorn=?, "
                    "EmployeePhone=?, "
                    "EmployeeDesc=?, IDCard=?, EmployeeAddress=?, email=?, Fax=?, Postcode=?, movephone=?, "
                    "State=? where EmployeeID=?"),
                {in.code, in.name, in.male ? QStringLiteral("男") : QStringLiteral("女"),
                 in.born.isValid() ? in.born.toString(QStringLiteral("yyyy-MM-dd")) : QString(), in.phone,
                 in.description, in.idCard, in.address, in.email, in.fax, in.postCode, in.movePhone, in.state,
                 key});
            // Edited meanwhile out of existence: nothing to write.
            if (n == 0) return m_db.discard(EmployeeSaved{});
            if (photo.kind == PhotoChange::Clear)
                m_db.exec(QStringLiteral("update Employee set ThisPhoto=null where EmployeeID=?"), {key});
            else if (photo.kind == PhotoChange::File)
                m_db.exec(QStringLiteral("update Employee set ThisPhoto=? where EmployeeID=?"),
                          {picture, key});
            return EmployeeSaved{key, std::nullopt};
        });
    } catch (const DbError& e) {
        return {{},
                Refusal{e.message(QStringLiteral("SaveData"), QStringLiteral("frmEmployee")),
                        {},
                        Msg::Icon::Critical}};
    }
}

Refused EmployeeService::remove(const QString& id) {
    if (DeleteByField(QStringLiteral("Employee"), QStringLiteral("EmployeeID"), id, m_db) == 0)
        return Refusal::warning(QStringLiteral("不能删除此数据，因为它已经使用！"));
    return std::nullopt;
}

int RecalcCommissionLines(Db& db) {
    // The per-unit rate is whole money, the quantity a number, rounded once per line as the
    // order window does (ties to even).
    return db.write([&] {
        const Rows lines = db.query(QStringLiteral(
            "select d.DetailID, d.num, coalesce(w.tiCheng, 0) as rate from ExpenseDetail d "
            "left join Ware w on w.WareID=d.WareID where d.Other1 is not null"));
        for (const Row r : lines)
            db.exec(QStringLiteral("update ExpenseDetail set TiChengMoney=? where DetailID=?"),
                    {r.money(QStringLiteral("rate")).times(r.num(QStringLiteral("num"))),
                     r.text(QStringLiteral("DetailID"))});
        return lines.count();
    });
}

CommissionRun EmployeeService::recalcCommissions() {
    try {
        return RecalcCommissionLines(m_db) == 0 ? CommissionRun::NothingToDo : CommissionRun::Done;
    } catch (const DbError&) {
        return CommissionRun::Failed;
    }
}
