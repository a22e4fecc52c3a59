#include "GoodsImport.h"
#include "AppState.h"
#include "Clock.h"
#include "Log.h"
#include "Val.h"
#include <QSet>

namespace GoodsImport {
namespace {
enum Col { WareID, WareName, WareUnit, Mnemonics, Price, WareTypeID, NowNum, MinNum, ProcurePrice };

// A number cell: empty counts as 0, as in the goods dialog.
std::optional<double> number(const QString& text, NumberRange range) {
    return text.trimmed().isEmpty() ? std::optional<double>(0.0) : ReadNumber(text, range);
}

void logRow(bool ok, const QString& text, Db& db) {
    WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("营业设置"), QStringLiteral("商品及服务"), 1,
             ok, text, db);
}
} // namespace

int Preview::refused() const {
    int n = 0;
    for (const Line& l : lines)
        n += l.refusal.isEmpty() ? 0 : 1;
    return n;
}

Preview Check(const Sheet& sheet, Db& db) {
    Preview p;
    p.headers = sheet.headers;
    QSet<QString> kept, types, seen;
    for (const Row& r : db.query(QStringLiteral("select WareID from Ware")))
        kept.insert(r.text(QStringLiteral("WareID")));
    for (const Row& r : db.query(QStringLiteral("select WareTypeID from WareType")))
        types.insert(r.text(QStringLiteral("WareTypeID")));
    static const struct {
        Col col;
        const char16_t* name;
        NumberRange range;
    } numbers[] = {{Price, u"售价", Range::Money},
                   {NowNum, u"库存数量", Range::Quantity},
                   {MinNum, u"最低库存", Range::Quantity},
                   {ProcurePrice, u"进价", Range::Money}};
    for (const QStringList& cells : sheet.rows) {
        Line l{cells, {}};
        const QString id = cells.value(WareID).trimmed();
        if (qMax(cells.size(), sheet.headers.size()) < Columns)
            l.refusal = QStringLiteral("少于%1列").arg(Columns);
        else if (id.isEmpty())
            l.refusal = QStringLiteral("商品编号为空");
        else if (kept.contains(id))
            l.refusal = QStringLiteral("商品编号已存在");
        else if (seen.contains(id))
            l.refusal = QStringLiteral("商品编号在表中重复");
        else if (cells.value(WareName).trimmed().isEmpty())
            l.refusal = QStringLiteral("商品名称为空");
        else if (!types.contains(cells.value(WareTypeID).trimmed()))
            l.refusal = QStringLiteral("商品类别编号不存在");
        for (const auto& n : numbers)
            if (l.refusal.isEmpty() && !number(cells.value(n.col), n.range))
                l.refusal = QString::fromUtf16(n.name) + QStringLiteral("不是有效的数字");
        if (!id.isEmpty()) seen.insert(id);
        p.lines.append(l);
    }
    return p;
}

Outcome Import(const Preview& preview, Db& db) {
    Outcome o;
    const int total = int(preview.lines.size());
    if (total == 0) return o;
    const auto failed = [&](const QString& description) {
        o.imported = 0;
        o.info = QStringLiteral("发生错误：\n错误描述：") + description +
                 QStringLiteral("\n请检查商品编号是否已存在，金额或数字值是否正确！");
        logRow(false, QStringLiteral("准备导入商品数据共计 %1 条，实际导入 0 条，未成功！").arg(total), db);
        return o;
    };
    if (const int bad = preview.refused())
        return failed(QStringLiteral("有 %1 行数据不能导入（原因见列表），所有数据都没有导入").arg(bad));
    QString info;
    try {
        db.write([&] {
            info.clear();
            for (const Line& l : preview.lines) {
                const QStringList& c = l.cells;
                db.exec(QStringLiteral(
                            "insert into Ware (WareID, WareName, wareUnit, Mnemonics, Price, WareTypeID, "
                            "nownum, minnum, ProcurePrice) values (?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                        {c.value(WareID).trimmed(), c.value(WareName).trimmed(), c.value(WareUnit).trimmed(),
                         c.value(Mnemonics).trimmed(), Money::fromDouble(Val(c.value(Price))),
                         c.value(WareTypeID).trimmed(), Val(c.value(NowNum)), Val(c.value(MinNum)),
                         Money::fromDouble(Val(c.value(ProcurePrice)))});
                info += QStringLiteral("编号为 ") + c.value(WareID).trimmed() +
                        QStringLiteral(" 的商品导入成功！\n");
            }
        });
    } catch (const DbError& e) {
        return failed(e.description);
    }
    o.imported = total;
    o.info = info + QStringLiteral("成功导入了 %1 行数据").arg(total);
    logRow(true, QStringLiteral("成功导入商品数据共计 %1 条。").arg(total), db);
    return o;
}
} // namespace GoodsImport
