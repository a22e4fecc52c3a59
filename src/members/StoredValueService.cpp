#include "StoredValueService.h"
#include "AppState.h"
#include "Clock.h"
#include "Dialect.h"
#include "Format.h"
#include "Gateway.h"
#include "Val.h"

ChongzhiMemberLoad StoredValueService::loadMember(const QString& code) const {
    const Rows r = m_db.query(QStringLiteral("select * from member where Membercode=?"), {code});
    if (r.isEmpty())
        return {std::nullopt, Refusal{QStringLiteral("没找到这个会员！请检查您输入的会员编号是否正确！"),
                                      QStringLiteral("txtMemberCode"), Msg::Icon::Exclamation}};
    const Row m = r.first();
    // Only 1 is a stop; any other state may top up.
    if (m.integer(QStringLiteral("State")) == 1)
        return {std::nullopt, Refusal{QStringLiteral("不能操作此会员的数据，因为此会员已暂停服务！"),
                                      QStringLiteral("txtMemberCode"), Msg::Icon::Exclamation}};
    return {ChongzhiMember{m.text(QStringLiteral("MemberCode")), m.text(QStringLiteral("MemberName")),
                           m.money(QStringLiteral("chongzhi"))},
            std::nullopt};
}

Refused StoredValueService::validate(const ChongzhiInput& in) {
    if (in.currentMember.isEmpty())
        return Refusal{QStringLiteral("请输入正确的会员编号！"), QStringLiteral("txtMemberCode")};
    if (!ReadNumber(in.factPay, Range::Money))
        return Refusal{QStringLiteral("请输入实收金额！"), QStringLiteral("txtFactPay")};
    if (!ReadNumber(in.thisMemoney, Range::Money))
        return Refusal{QStringLiteral("请输入充值金额！"), QStringLiteral("txtThisMemoney")};
    return std::nullopt;
}

ChongzhiSaved StoredValueService::save(const ChongzhiInput& in) {
    if (Refused r = validate(in)) {
        ChongzhiSaved out;
        out.refusal = r;
        return out;
    }
    const Money credited = Money::fromText(in.thisMemoney);
    const Money received = Money::fromText(in.factPay);
    const QString when = TimeText(Now());
    try {
        return m_db.write([&] {
            ChongzhiSaved out;
            out.operatorTime = when;
            // Relative to the stored balance, so a top-up or checkout on another workstation at
            // the same moment is kept; a negative top-up only while the card still holds it.
            const bool credit =
                m_db.exec(
                    QStringLiteral("update member set chongzhi=coalesce(chongzhi,0)+? where membercode=? "
                                   "and (?>=0 or coalesce(chongzhi,0)+?>=0)"),
                    {credited, in.currentMember, credited, credited}) > 0;
            if (!credit && m_db.scalar(QStringLiteral("select count(*) from member where membercode=?"),
                                       {in.currentMember})
                                   .toLongLong() > 0) {
                out.refusal = Refusal{QStringLiteral("储值卡的余额不够扣减，请重新输入充值金额！"),
                                      QStringLiteral("txtThisMemoney")};
                return m_db.discard(out);
            }
            out.chongzhiID = FreshKey(QStringLiteral("chongzhi"), QStringLiteral("chongzhiid"), m_db);
            m_db.exec(QStringLiteral("insert into chongzhi (chongzhiid, MemberCode, thismemoney, factpay, "
                                     "Description, operatorname, OperatorTime) values (?, ?, ?, ?, ?, ?, ?)"),
                      {out.chongzhiID, in.currentMember, credited, received, in.description,
                       App().CurrentOperatorName, when});
            if (!credit)
                out.warning =
                    Refusal{QStringLiteral("充值失败，没找个此会员的资料！请核对此会员数据是否已被清除！"),
                            {},
                            Msg::Icon::Exclamation};
            return out;
        });
    } catch (const DbError& e) {
        ChongzhiSaved out;
        out.refusal = Refusal{
            e.message(QStringLiteral("SaveData"), QStringLiteral("frmChongzhi")), {}, Msg::Icon::None};
        return out;
    }
}

ChongzhiPeriod StoredValueService::period(int index, const QDate& today) {
    const QTime midnight(0, 0);
    switch (index) {
    case 1: {
        const QDate sunday = today.addDays(-(today.dayOfWeek() % 7));
        return {QDateTime(sunday, midnight), QDateTime(sunday.addDays(7), midnight)};
    }
    case 2: {
        const QDate next = today.addMonths(1);
        return {QDateTime(QDate(today.year(), today.month(), 1), midnight),
                QDateTime(QDate(next.year(), next.month(), 1), midnight)};
    }
    default:
        return {QDateTime(today, midnight), QDateTime(today.addDays(1), midnight)};
    }
}

ChongzhiTotals StoredValueService::search(const QDateTime& start, const QDateTime& end) const {
    const QString from = TimeText(start), to = TimeText(end);
    QString condition;
    Params params;
    if (from != to) {
        condition = QStringLiteral(" (chongzhi.OperatorTime>=? and chongzhi.OperatorTime<?) ");
        params = {from, to};
    } else {
        condition = QStringLiteral(" (chongzhi.OperatorTime=?) ");
        params = {from};
    }
    ChongzhiTotals out;
    out.rows =
        m_db.query(QStringLiteral("select chongzhi.*,member.membername from chongzhi left join member on "
                                  "chongzhi.membercode=member.membercode where") +
                       condition + QStringLiteral("order by chongzhi.OperatorTime desc"),
                   params);
    for (const Row r : out.rows) {
        out.factPay += r.money(QStringLiteral("factpay"));
        out.thisMemoney += r.money(QStringLiteral("thismemoney"));
    }
    return out;
}
