#include "WareLevel.h"
#include "AppState.h"
#include "Clock.h"
#include "Dialect.h"
#include "Format.h"
#include "Log.h"
#include "Val.h"

namespace {
QString col(const char* base, int i) {
    return QString::fromLatin1(base) + QString::number(i + 1);
}
QString number(double v) {
    return QString::number(v, 'g', 15);
}
} // namespace

namespace WareLevelService {
std::optional<WareLevelInput> load(const QString& id, Db& db) {
    const Rows r = db.query(QStringLiteral("select * from WareLevel where WareLevelID=?"), {id});
    if (r.isEmpty()) return std::nullopt;
    const Row row = r.first();
    WareLevelInput in;
    in.name = row.text(QStringLiteral("WareLevelName"));
    in.description = row.text(QStringLiteral("Description"));
    for (int i = 0; i < 4; ++i) {
        const double s = row.num(col("start", i));
        const double e = row.num(col("end", i));
        in.start[size_t(i)] = i == 0 || s > 0 ? number(s) : QString();
        in.end[size_t(i)] = e > 0 ? number(e) : QString();
        in.discount[size_t(i)] = FormatNumber(row.num(col("Discount", i)), QStringLiteral("0.00"));
    }
    return in;
}

Refused validate(const WareLevelInput& in) {
    const QString first = QStringLiteral("cmbEnd1");
    if (in.name.trimmed().isEmpty())
        return Refusal{QStringLiteral("请时段名称！"), QStringLiteral("txtWareLevelName")};
    if (Val(in.end[0]) == 0) return Refusal{QStringLiteral("请选择时段1结束时间！"), first};
    // Discounts read as Val (text is 0), but never as a factor no price can take.
    for (int i = 0; i < 4; ++i)
        if (!ValFits(in.discount[size_t(i)], Range::Quantity))
            return Refusal{QStringLiteral("折扣只能输入数字！"),
                           QStringLiteral("txtDiscount") + QString::number(i + 1)};
    for (const QString& e : in.end)
        if (Val(e) == 24) return std::nullopt;
    return Refusal{QStringLiteral("必须设置一个时段的结束时间为24点！"), first};
}

QString logText(const WareLevelInput& in) {
    QStringList periods;
    for (size_t i = 0; i < 4; ++i)
        periods << in.start[i] + QLatin1Char('-') + in.end[i] + QStringLiteral("折扣：") + in.discount[i];
    return QStringLiteral("修改为：") + periods.join(QStringLiteral("，"));
}

void save(const QString& id, const WareLevelInput& in, Db& db) {
    Params values{in.name};
    for (const auto* texts : {&in.start, &in.end, &in.discount})
        for (const QString& t : *texts)
            values << Val(t);
    values << in.description.trimmed() << id;
    const QString update = QStringLiteral(
        "update WareLevel set WareLevelName=?, start1=?, start2=?, start3=?, start4=?, end1=?, end2=?, "
        "end3=?, "
        "end4=?, Discount1=?, Discount2=?, Discount3=?, Discount4=?, Description=? where WareLevelID=?");
    // Made on another workstation meanwhile: the write runs again and then updates it.
    db.write([&] {
        if (db.exec(update, values) == 0) {
            db.exec(QStringLiteral(
                        "insert into WareLevel (WareLevelName, start1, start2, start3, start4, "
                        "end1, end2, end3, end4, Discount1, Discount2, Discount3, Discount4, "
                        "Description, WareLevelID) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                    values);
        }
        WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("营业设置"),
                 QStringLiteral("商品折扣时段设置"), 2, true, logText(in), db);
    });
}
} // namespace WareLevelService
