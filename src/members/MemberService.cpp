#include "MemberService.h"
#include "AppState.h"
#include "Clock.h"
#include "Dialect.h"
#include "Format.h"
#include "Log.h"
#include "Password.h"
#include "Val.h"
#include <QFile>

namespace {
// Every column the list shows; the photo and the password hash stay in the store.
const QString ListColumns = QStringLiteral(
    "member.MemberCode, member.MemberName, member.Sex, member.Nationality, member.IDCard, member.Address, "
    "member.phone, member.movephone, member.Fax, member.Postcode, member.email, member.ComName, "
    "member.ComAddress, member.ComPostcode, member.TheFunction, member.Description, member.sms, "
    "member.AddDate, member.birthday, member.SetupID, member.State, member.MemberValue, member.chongzhi, "
    "member.sumValue");

QString sexText(bool male) {
    return male ? QStringLiteral("男") : QStringLiteral("女");
}
} // namespace

qint64 MemberPoints(Money paid, double stepValue) {
    if (stepValue == 0) return 0;
    return RoundEven(paid.toDouble() / stepValue);
}

bool PasswordMatches(const QString& stored, const QString& typed) {
    if (stored.startsWith(QLatin1String("$argon2"))) return Password::verify(stored, typed);
    return stored == typed;
}

Rows MemberService::search(const QString& name, const QString& code) const {
    QStringList where;
    Params params;
    const QString like = QLatin1Char(' ') + m_db.dialect().ilike() + QStringLiteral(" ?");
    if (!name.trimmed().isEmpty()) {
        where << QStringLiteral("member.MemberName") + like;
        params << QString(QLatin1Char('%') + name.trimmed() + QLatin1Char('%'));
    }
    if (!code.trimmed().isEmpty()) {
        where << QStringLiteral("member.Membercode") + like;
        params << QString(QLatin1Char('%') + code.trimmed() + QLatin1Char('%'));
    }
    QString sql =
        QStringLiteral("select ") + ListColumns +
        QStringLiteral(",memberSetup.SetupName,memberSetup.Discount from Member left join memberSetup "
                       "on Member.SetupID=MemberSetup.Setupid ");
    if (!where.isEmpty()) sql += QStringLiteral("where ") + where.join(QStringLiteral(" and "));
    sql += QStringLiteral(" order by member.MemberCode");
    return m_db.query(sql, params);
}

std::optional<MemberInput> MemberService::load(const QString& code) const {
    const Rows r = m_db.query(QStringLiteral("select * from Member where Membercode=?"), {code});
    if (r.isEmpty()) return std::nullopt;
    const Row m = r.first();
    MemberInput in;
    in.code = m.text(QStringLiteral("MemberCode"));
    in.name = m.text(QStringLiteral("MemberName"));
    in.male = m.text(QStringLiteral("Sex")) == QStringLiteral("男");
    in.addDate = ParseTime(m.text(QStringLiteral("AddDate")));
    in.setupID = m.text(QStringLiteral("SetupID"));
    in.state = int(m.integer(QStringLiteral("State")));
    in.memberValue = QString::number(m.num(QStringLiteral("MemberValue")), 'g', 15);
    in.nationality = m.text(QStringLiteral("Nationality"));
    in.idCard = m.text(QStringLiteral("IDCard"));
    in.address = m.text(QStringLiteral("Address"));
    in.phone = m.text(QStringLiteral("phone"));
    in.movePhone = m.text(QStringLiteral("movephone"));
    in.fax = m.text(QStringLiteral("Fax"));
    in.postCode = m.text(QStringLiteral("Postcode"));
    in.email = m.text(QStringLiteral("email"));
    in.comName = m.text(QStringLiteral("ComName"));
    in.comAddress = m.text(QStringLiteral("ComAddress"));
    in.comPostCode = m.text(QStringLiteral("ComPostcode"));
    in.theFunction = m.text(QStringLiteral("TheFunction"));
    in.description = m.text(QStringLiteral("Description"));
    in.sms = m.text(QStringLiteral("sms"));
    if (!m.isNull(QStringLiteral("birthday")))
        in.birthday = ParseTime(m.text(QStringLiteral("birthday"))).date();
    return in;
}

QByteArray MemberService::photo(const QString& code) const {
    return m_db.scalar(QStringLiteral("select ThisPhoto from Member where MemberCode=?"), {code})
        .toByteArray();
}

Refused MemberService::validate(const MemberInput& in) {
    if (in.code.trimmed().isEmpty())
        return Refusal{QStringLiteral("请输入会员编号！"), QStringLiteral("txtMemberCode")};
    if (in.name.trimmed().isEmpty())
        return Refusal{QStringLiteral("请输入会员姓名！"), QStringLiteral("txtMemberName")};
    if (in.setupID.isEmpty())
        return Refusal{QStringLiteral("请选择会员等级！"), QStringLiteral("imgcmbMemberSetup")};
    if (!ValFits(in.memberValue, Range::Quantity))
        return Refusal{QStringLiteral("会员积分只能输入数字！"), QStringLiteral("txtMemberValue")};
    return std::nullopt;
}

MemberSaved MemberService::save(const QString& originalCode, const MemberInput& in,
                                const MemberPhoto& photo) {
    if (Refused r = validate(in)) return {false, r};
    // Whatever goes wrong, a taken code is the usual cause, so the message names it.
    const auto failed = [&](int number, const QString& description) {
        return MemberSaved{false,
                           Refusal{QStringLiteral("会员编号为： ") + in.code +
                                       QStringLiteral(" 的会员已存在，请重新输入会员编号！\n错误信息： ") +
                                       QString::number(number) + QStringLiteral(" (") + description +
                                       QStringLiteral(") in procedure SaveData of Form frmMember"),
                                   {},
                                   Msg::Icon::Exclamation}};
    };
    QByteArray picture = photo.data;
    if (photo.kind == MemberPhoto::File) {
        QFile f(photo.path);
        if (!f.open(QIODevice::ReadOnly)) return failed(-1, f.errorString());
        picture = f.readAll();
    }
    const bool adding = originalCode.isEmpty();
    try {
        return m_db.write([&]() -> MemberSaved {
            if (adding) m_db.exec(QStringLiteral("insert into Member (MemberCode) values (?)"), {in.code});
            const int n = m_db.exec(
                QStringLiteral(
                    "update Member set MemberCode=?, MemberName=?, Sex=?, AddDate=?, SetupID=?, State=?, "
                    "MemberValue=?, Nationality=?, IDCard=?, Address=?, phone=?, movephone=?, Fax=?, "
                    "Postcode=?, email=?, ComName=?, ComAddress=?, ComPostcode=?, TheFunction=?, "
                    "Description=?, sms=?, birthday=? where MemberCode=?"),
                {in.code,
                 in.name,
                 sexText(in.male),
                 TimeText(in.addDate),
                 in.setupID,
                 in.state,
                 Val(in.memberValue),
                 in.nationality,
                 in.idCard,
                 in.address,
                 in.phone,
                 in.movePhone,
                 in.fax,
                 in.postCode,
                 in.email,
                 in.comName,
                 in.comAddress,
                 in.comPostCode,
                 in.theFunction,
                 in.description,
                 in.sms.trimmed(),
                 in.birthday.isValid() ? Param(in.birthday.toString(QLatin1String(DayFormat)))
                                       : Param(nullptr),
                 adding ? in.code : originalCode});
            if (n == 0) return {};
            if (photo.kind == MemberPhoto::Clear)
                m_db.exec(QStringLiteral("update Member set ThisPhoto=null where MemberCode=?"), {in.code});
            else if (photo.kind != MemberPhoto::Keep)
                m_db.exec(QStringLiteral("update Member set ThisPhoto=? where MemberCode=?"),
                          {picture, in.code});
            WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("会员管理"), QStringLiteral("会员资料"),
                     adding ? 1 : 2, true,
                     QStringLiteral("会员资料：") + in.code + QLatin1Char(' ') + in.name, m_db);
            return {true, std::nullopt};
        });
    } catch (const DbError& e) {
        return failed(e.number, e.description);
    }
}

qint64 MemberService::billCount(const QString& code) const {
    return m_db.scalar(QStringLiteral("select count(*) as num from expense where CustomerCode=?"), {code})
        .toLongLong();
}

MemberDelete MemberService::remove(const QString& code, bool confirmed) {
    try {
        if (billCount(code) > 0) {
            if (!confirmed) return MemberDelete::NeedsQuestion;
            // The bills stay whatever the question said; only the top-ups go with the member.
            const int gone = m_db.write([&] {
                m_db.exec(QStringLiteral("delete From chongzhi where membercode=?"), {code});
                return m_db.exec(QStringLiteral("delete From Member where MemberCode=?"), {code});
            });
            return gone > 0 ? MemberDelete::Deleted : MemberDelete::NothingGone;
        }
        return m_db.exec(QStringLiteral("delete From Member where MemberCode=?"), {code}) > 0
                   ? MemberDelete::Deleted
                   : MemberDelete::NothingGone;
    } catch (const DbError&) {
        return MemberDelete::Refused;
    }
}

bool MemberService::ClearPassword(const QString& code) {
    return m_db.exec(QStringLiteral("update member  set pw='' where membercode=?"), {code}) > 0;
}

Rows MemberService::chongzhiRecords(const QString& code) const {
    return m_db.query(
        QStringLiteral("select * from chongzhi where membercode=? order by chongzhi.OperatorTime desc"),
        {code});
}

Rows MemberService::chongzhiExpenses(const QString& code) const {
    return m_db.query(QStringLiteral("select * from Expense where chongzhiIDCare=?"), {code});
}

std::optional<MemberCard> MemberService::card(const QString& code) const {
    const Rows r = m_db.query(
        QStringLiteral("select member.MemberCode, member.MemberName, member.State, member.SetupID, "
                       "member.MemberValue, member.chongzhi, member.sumValue, membersetup.Discount, "
                       "membersetup.SetupName, membersetup.StepValue from Member left join memberSetup on "
                       "member.SetupID=memberSetup.setupid where Membercode=?"),
        {code});
    if (r.isEmpty()) return std::nullopt;
    const Row m = r.first();
    MemberCard c;
    c.code = m.text(QStringLiteral("MemberCode"));
    c.name = m.text(QStringLiteral("MemberName"));
    c.state = m.integer(QStringLiteral("State"));
    c.setupID = m.text(QStringLiteral("SetupID"));
    c.setupName = m.text(QStringLiteral("SetupName"));
    c.discount = m.num(QStringLiteral("Discount"));
    c.stepValue = m.num(QStringLiteral("StepValue"));
    c.points = m.num(QStringLiteral("MemberValue"));
    c.chongzhi = m.money(QStringLiteral("chongzhi"));
    c.sumValue = m.money(QStringLiteral("sumValue"));
    return c;
}

bool MemberService::CheckMemberPassword(const QString& code, const QString& typed) const {
    const Rows r = m_db.query(QStringLiteral("select pw from Member where membercode=?"), {code});
    return !r.isEmpty() && PasswordMatches(r.first().text(QStringLiteral("pw")), typed);
}

MemberService::Settled MemberService::settle(const QString& code, Money paid, Money cardPay) {
    const Rows r =
        m_db.query(QStringLiteral("select memberSetup.StepValue from Member left join memberSetup on "
                                  "Member.SetupID=memberSetup.SetupID where Member.MemberCode=?"),
                   {code});
    if (r.isEmpty()) return Settled::MemberGone;
    const qint64 points = MemberPoints(paid, r.first().num(QStringLiteral("StepValue")));
    const int n = m_db.exec(QStringLiteral("update Member set MemberValue=coalesce(MemberValue,0)+?, "
                                           "sumValue=coalesce(sumValue,0)+?, chongzhi=coalesce(chongzhi,0)-? "
                                           "where MemberCode=? and (?<=0 or coalesce(chongzhi,0)>=?)"),
                            {points, paid, cardPay, code, cardPay, cardPay});
    if (n > 0) return Settled::Done;
    return m_db.query(QStringLiteral("select MemberCode from Member where MemberCode=?"), {code}).isEmpty()
               ? Settled::MemberGone
               : Settled::BalanceShort;
}
