#include "MemberClassService.h"
#include "Format.h"
#include "Gateway.h"
#include "Val.h"

Rows MemberClassService::list() const {
    return m_db.query(QStringLiteral("select * from MemberSetup"));
}

std::optional<MemberClassInput> MemberClassService::load(const QString& id) const {
    const Rows r = m_db.query(QStringLiteral("select * from MemberSetup where SetupID=?"), {id});
    if (r.isEmpty()) return std::nullopt;
    const Row s = r.first();
    MemberClassInput in;
    in.name = s.text(QStringLiteral("SetupName"));
    in.initValue = QString::number(s.num(QStringLiteral("InitValue")), 'g', 15);
    in.stepValue = FormatNumber(s.num(QStringLiteral("StepValue")), QStringLiteral("0"));
    in.discount = FormatNumber(s.num(QStringLiteral("discount")), QStringLiteral("0.00"));
    in.description = s.text(QStringLiteral("Description"));
    return in;
}

Refused MemberClassService::validate(const MemberClassInput& in) {
    if (in.name.trimmed().isEmpty())
        return Refusal{QStringLiteral("请输入分类名称！"), QStringLiteral("txtSetupName")};
    if (!ReadNumber(in.initValue, Range::Quantity))
        return Refusal{QStringLiteral("请输入初始积分！"), QStringLiteral("txtInitValue")};
    if (!ReadNumber(in.stepValue, Range::Quantity))
        return Refusal{QStringLiteral("请输入积分方法！"), QStringLiteral("txtStepValue")};
    if (!ReadNumber(in.discount, Range::Quantity))
        return Refusal{QStringLiteral("请输入折扣！"), QStringLiteral("txtDiscount")};
    return std::nullopt;
}

MemberClassSaved MemberClassService::save(const QString& id, const MemberClassInput& in) {
    if (Refused r = validate(in)) return {{}, r};
    try {
        return m_db.write([&]() -> MemberClassSaved {
            QString key = id;
            if (key.isEmpty()) {
                key = FreshKey(QStringLiteral("MemberSetup"), QStringLiteral("SetupID"), m_db);
                m_db.exec(QStringLiteral("insert into MemberSetup (SetupID) values (?)"), {key});
            }
            const int n = m_db.exec(
                QStringLiteral("update MemberSetup set SetupName=?, InitValue=?, StepValue=?, "
                               "discount=?, Description=? where SetupID=?"),
                {in.name, Val(in.initValue), Val(in.stepValue), Val(in.discount), in.description, key});
            if (n == 0) return {};
            return {key, std::nullopt};
        });
    } catch (const DbError& e) {
        // This editor has always reported its failures under the member form's name.
        return {{},
                Refusal{e.message(QStringLiteral("SaveData"), QStringLiteral("frmMember")),
                        {},
                        Msg::Icon::Critical}};
    }
}

Refused MemberClassService::remove(const QString& id, bool* gone) {
    if (gone) *gone = false;
    try {
        const int n = m_db.exec(QStringLiteral("delete From MemberSetup where SetupID=?"), {id});
        if (gone) *gone = n > 0;
        return std::nullopt;
    } catch (const DbError&) {
        return Refusal::warning(QStringLiteral("不能删除此数据，因为它已经使用！"));
    }
}

std::optional<double> MemberClassService::initValue(const QString& id) const {
    const Rows r = m_db.query(QStringLiteral("Select * from MemberSetup where SetupID=?"), {id});
    if (r.isEmpty()) return std::nullopt;
    return r.first().num(QStringLiteral("InitValue"));
}
