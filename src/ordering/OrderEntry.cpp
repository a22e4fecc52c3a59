#include "OrderEntry.h"
#include "NewID.h"
#include "Val.h"

bool OrderEntry::open(const QString& expenseID) {
    m_expenseID = expenseID;
    m_theCode.clear();
    const std::optional<QString> code = m_service.theCodeOf(expenseID);
    if (!code) return false;
    m_theCode = *code;
    return true;
}

QString OrderEntry::theCodeCaption() const {
    return QStringLiteral("包厢号: ") + m_theCode;
}

void OrderEntry::buildGoods(const QDateTime& at, const AllDiscountRate& all) {
    m_goods = WareCatalog::FillWareList(at, all, m_db);
    m_types.clear();
    for (const Row r : WareCatalog::wareTypesByName(m_db))
        m_types << WareTypeNode{r.text(QStringLiteral("WareTypeID")), r.text(QStringLiteral("wareTypeName"))};
    m_allDiscountCaption = AllDiscountCaption(all);
}

QStringList OrderEntry::priceWarnings() const {
    QStringList out;
    for (const PricedWare& w : m_goods)
        if (!w.decided.warning.isEmpty()) out << w.decided.warning;
    return out;
}

int OrderEntry::FindMnemonic(const QString& mnemonic) const {
    const QString wanted = mnemonic.toLower();
    for (int i = 0; i < m_goods.size(); ++i)
        if (m_goods[i].mnemonics.toLower() == wanted) return i;
    return -1;
}

QuickEntry OrderEntry::quickEntry(const QString& text, bool autoAdd) const {
    QuickEntry q;
    if (text.trimmed().isEmpty()) return q;
    // Split where typed, at the first blank: what stands before it is the mnemonic.
    const qsizetype blank = text.indexOf(QLatin1Char(' '));
    const QString mnemonic = blank < 0 ? text : text.left(blank);
    const QString quantity = blank < 0 ? QString() : text.mid(blank + 1);
    q.index = FindMnemonic(mnemonic);
    if (q.index < 0) {
        q.next = QuickEntry::Next::NotFound;
        q.message = QStringLiteral("没找到助记符为“") + mnemonic + QStringLiteral("”的商品或服务！");
        return q;
    }
    if (!quantity.isEmpty()) {
        if (!ReadNumber(quantity.trimmed(), Range::Quantity)) {
            q.next = QuickEntry::Next::BadQuantity;
            q.message = QStringLiteral("您输入") + quantity + QStringLiteral("数量有误，请重新输入！");
            return q;
        }
        q.num = quantity;
        q.next = autoAdd ? QuickEntry::Next::Save : QuickEntry::Next::FocusSteward;
        return q;
    }
    if (autoAdd) {
        q.num = QStringLiteral("1");
        q.next = QuickEntry::Next::Save;
    } else {
        q.next = QuickEntry::Next::FocusNum;
    }
    return q;
}

WareChoice OrderEntry::listChoice(int index) const {
    const PricedWare& w = m_goods.at(index);
    return {w.wareID, w.decided.text, w.tiCheng.toString2()};
}

std::optional<WareChoice> OrderEntry::treeChoice(const QString& key, const QString& text, double tag) {
    if (key.isEmpty() || key.at(0).toLower() == QLatin1Char('t')) return std::nullopt;
    // The commission is read back from the node's text, so a name holding "提 " misleads it.
    const qsizetype at = text.indexOf(QStringLiteral("提 "));
    const QString tiCheng = at < 0 ? QString() : text.mid(at + 2);
    return WareChoice{StripKey(key), Money::fromDouble(tag).toPlain(), tiCheng};
}

QString OrderEntry::treeText(const PricedWare& w) {
    return w.wareName + QStringLiteral("   ") + w.decided.text + QStringLiteral("   提 ") +
           w.tiCheng.toString2();
}

LineSaved OrderEntry::save(const WareChoice& ware, OrderLineInput in) {
    m_saved = false;
    in.expenseID = m_expenseID;
    in.thisCode = m_thisCode;
    in.wareID = ware.wareID;
    in.price = ware.price;
    in.tiCheng = ware.tiCheng;
    LineSaved s = m_service.SaveLine(in);
    if (s.ok()) {
        m_thisCode = s.line->thisCode;
        m_batch << *s.line;
        m_saved = true;
    }
    return s;
}

Refused OrderEntry::voidLine(const QString& detailID) {
    Refused r = m_service.DeleteDetail(m_expenseID, detailID);
    if (!r) m_batch.removeIf([&](const OrderedLine& l) { return l.detailID == detailID; });
    return r;
}

void OrderEntry::endBatch() {
    m_thisCode.clear();
    m_batch.clear();
}

Money OrderEntry::thisSum() const {
    // The amounts as the list shows them, two decimals each.
    Money sum;
    for (const OrderedLine& l : m_batch)
        sum += Money::fromText(l.oughtMoney.toString2());
    return sum;
}

QString OrderEntry::thisSumCaption() const {
    return QStringLiteral("本次消费: ") + thisSum().toYuan();
}

QString OrderEntry::thisSumTag() const {
    return thisSum().toString2();
}
