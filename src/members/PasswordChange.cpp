#include "PasswordChange.h"
#include "MemberService.h"
#include "Password.h"

Refused ChangePassword(const PasswordChangeInput& in, Db& db) {
    if (in.newPw != in.repeatPw)
        return Refusal{QStringLiteral("您输入的新密码和重复密码不一样，请重新输入！"),
                       QStringLiteral("txtpw")};
    const bool member = in.kind == 2;
    const QString table = member ? QStringLiteral("Member") : QStringLiteral("Operator");
    const QString key = member ? QStringLiteral("MemberCode") : QStringLiteral("OperatorID");
    try {
        const Rows r = db.query(QStringLiteral("select pw from  ") + table + QStringLiteral(" where ") + key +
                                    QStringLiteral("=?"),
                                {in.id});
        if (r.isEmpty()) throw DbError(3021, QStringLiteral("没有找到要修改密码的记录"));
        const QString stored = r.first().text(QStringLiteral("pw"));
        if (!PasswordMatches(stored, in.nowPw))
            return Refusal{QStringLiteral("您输入的当前密码不正确，请重新输入！"),
                           QStringLiteral("txtNowPw")};
        const QString fresh = member && in.newPw.isEmpty() ? QString() : Password::hash(in.newPw);
        // Only over the password just checked: a change made meanwhile elsewhere wins.
        if (db.exec(QStringLiteral("update ") + table + QStringLiteral(" set pw=? where ") + key +
                        QStringLiteral("=? and coalesce(pw,'')=?"),
                    {fresh, in.id, stored}) == 0)
            return Refusal{QStringLiteral("您输入的当前密码不正确，请重新输入！"),
                           QStringLiteral("txtNowPw")};
        return std::nullopt;
    } catch (const DbError& e) {
        return Refusal{
            e.message(QStringLiteral("SaveData"), QStringLiteral("frmChangePW")), {}, Msg::Icon::None};
    }
}
