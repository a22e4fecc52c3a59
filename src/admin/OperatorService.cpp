#include "OperatorService.h"
#include "AppState.h"
#include "Gateway.h"
#include "Password.h"
#include "Val.h"

namespace {
const QString LockOut = QStringLiteral("至少要保留一个可用的、有管理操作员权限的操作员！");

QString noDecimals(double v) {
    return QString::number(v, 'f', 0);
}
} // namespace

Rows OperatorService::list() const {
    return m_db.query(QStringLiteral("select Operator.* from Operator order by LoginName, OperatorID"));
}

QList<OperatorRight> OperatorService::rights(const QString& id) const {
    const Rows rows = m_db.query(
        QStringLiteral(
            "select s.SysPuissanceID, s.sysPuissanceName, s.Description, p.isHave from SysPuissance s "
            "left join Puissance p on p.SysPuissanceID=s.SysPuissanceID and p.OperatorID=? "
            "order by s.Orderby, s.SysPuissanceID"),
        {id});
    QList<OperatorRight> out;
    for (const Row r : rows)
        out << OperatorRight{r.text(QStringLiteral("SysPuissanceID")),
                             r.text(QStringLiteral("sysPuissanceName")),
                             r.text(QStringLiteral("Description")), r.num(QStringLiteral("isHave")) == 1.0};
    return out;
}

std::optional<OperatorInput> OperatorService::load(const QString& id) const {
    const Rows r = m_db.query(QStringLiteral("select * from Operator where OperatorID=?"), {id});
    if (r.isEmpty()) return std::nullopt;
    const Row o = r.first();
    OperatorInput in;
    in.operatorName = o.text(QStringLiteral("operatorname"));
    in.loginName = o.text(QStringLiteral("LoginName"));
    in.discount = noDecimals(o.num(QStringLiteral("discount")));
    in.closeTimeSet = QString::number(o.num(QStringLiteral("Closetimeset")));
    in.description = o.text(QStringLiteral("Description"));
    in.state = int(o.integer(QStringLiteral("State")));
    in.rights = rights(id);
    return in;
}

Refused OperatorService::validate(const OperatorInput& in) {
    if (in.operatorName.trimmed().isEmpty())
        return Refusal{QStringLiteral("请输入用户名称！"), QStringLiteral("txtOperatorName")};
    if (in.loginName.trimmed().isEmpty())
        return Refusal{QStringLiteral("请输入操作员的登录姓名！"), QStringLiteral("txtLoginName")};
    if (in.pw != in.pwRepeat)
        return Refusal{QStringLiteral("您输入的登录密码和重复输入的密码不一样，请重新输入！"),
                       QStringLiteral("txtPW")};
    if (!ReadNumber(in.discount, Range::Money))
        return Refusal{QStringLiteral("请输入允许优惠的总金额（元）！"), QStringLiteral("txtDiscount")};
    if (!ReadNumber(in.closeTimeSet, Range::Int32))
        return Refusal{QStringLiteral("请输入允许优惠的时间（分钟）！"), QStringLiteral("txtCloseTimeSet")};
    if (in.loginName.toUpper() == QLatin1String("ADMIN")) {
        const bool s01 = std::any_of(in.rights.begin(), in.rights.end(), [](const OperatorRight& r) {
            return r.code == ManageOperatorsRight && r.granted;
        });
        if (!s01)
            return Refusal{QStringLiteral("您必须为“admin即“系统管理员”设置管理操作员的权限！"),
                           QStringLiteral("lvwSysPuissance")};
    }
    return std::nullopt;
}

bool OperatorService::someoneManagesOperators() const {
    return m_db.scalar(QStringLiteral(
                           "select count(*) from Puissance p join Operator o on o.OperatorID=p.OperatorID "
                           "where p.SysPuissanceID=? and p.isHave=1 and o.State=0"),
                       {ManageOperatorsRight})
               .toLongLong() > 0;
}

OperatorSaved OperatorService::save(const QString& id, const OperatorInput& in) {
    if (Refused r = validate(in)) return {{}, r};
    const double discount = Val(in.discount), closeTime = Val(in.closeTimeSet);
    // Hashing is slow on purpose: done once, outside the transaction.
    const bool keepPw = !id.isEmpty() && in.pw.isEmpty();
    const QString hash = keepPw ? QString() : Password::hash(in.pw);
    try {
        const OperatorSaved saved = m_db.write([&]() -> OperatorSaved {
            QString key = id;
            if (key.isEmpty()) {
                // The built-in administrator's key when it is free; a second "admin" gets its own.
                const bool adminFree =
                    in.loginName == QLatin1String("admin") &&
                    m_db.scalar(QStringLiteral("select count(*) from Operator where OperatorID=?"),
                                {BuiltInAdminID})
                            .toLongLong() == 0;
                key = adminFree ? BuiltInAdminID
                                : FreshKey(QStringLiteral("Operator"), QStringLiteral("OperatorID"), m_db);
                m_db.exec(QStringLiteral("insert into Operator (OperatorID, pw) values (?, ?)"), {key, hash});
            } else if (!keepPw) {
                m_db.exec(QStringLiteral("update Operator set pw=? where OperatorID=?"), {hash, key});
            }
            // The built-in administrator keeps its login name and state.
            const bool builtIn = key == BuiltInAdminID && !id.isEmpty();
            const int n = m_db.exec(
                builtIn
                    ? QStringLiteral(
                          "update Operator set operatorname=?, discount=?, Closetimeset=?, Description=? "
                          "where OperatorID=?")
                    : QStringLiteral(
                          "update Operator set operatorname=?, discount=?, Closetimeset=?, Description=?, "
                          "LoginName=?, State=? where OperatorID=?"),
                builtIn ? Params{in.operatorName, discount, closeTime, in.description, key}
                        : Params{in.operatorName, discount, closeTime, in.description, in.loginName, in.state,
                                 key});
            if (n == 0) return m_db.discard(OperatorSaved{}); // deleted meanwhile
            m_db.exec(QStringLiteral("delete from Puissance where OperatorID=?"), {key});
            for (const OperatorRight& r : in.rights)
                m_db.exec(QStringLiteral(
                              "insert into Puissance (OperatorID, SysPuissanceID, isHave) values (?,?,?)"),
                          {key, r.code, r.granted ? 1 : 0});
            if (!someoneManagesOperators())
                return m_db.discard(
                    OperatorSaved{{}, Refusal::warning(LockOut, QStringLiteral("lvwSysPuissance"))});
            return OperatorSaved{key, std::nullopt};
        });
        // Limits in force change only when operators edit their own row.
        if (saved.ok() && !saved.id.isEmpty() && saved.id == App().CurrentOperatorID) {
            App().CurrentDiscountLimit = float(discount);
            App().CurrentCloseTimeLimit = float(closeTime);
        }
        return saved;
    } catch (const DbError& e) {
        return {{}, Refusal::error(e.message(QStringLiteral("SaveData"), QStringLiteral("frmOperator")))};
    }
}

Refused OperatorService::remove(const QString& id, const QString& loginName) {
    if (loginName.toLower() == QLatin1String("admin")) {
        Refusal r = Refusal::warning(QStringLiteral("您不能删除系统管理员这个用户！"));
        r.title = QStringLiteral("系统提示");
        return r;
    }
    try {
        return m_db.write([&]() -> Refused {
            m_db.exec(QStringLiteral("delete from Puissance where OperatorID=?"), {id});
            if (DeleteByField(QStringLiteral("Operator"), QStringLiteral("OperatorID"), id, m_db) == 0)
                return m_db.discard(
                    Refused(Refusal::warning(QStringLiteral("不能删除此数据，因为它已经使用！"))));
            if (!someoneManagesOperators()) return m_db.discard(Refused(Refusal::warning(LockOut)));
            return std::nullopt;
        });
    } catch (const DbError& e) {
        return Refusal::error(
            e.message(QStringLiteral("cmdOperatorDel_Click"), QStringLiteral("frmOperatorList")));
    }
}
