#include "SupplierService.h"
#include "Gateway.h"

const QList<SupplierField>& SupplierFields() {
    static const QList<SupplierField> fields = [] {
        QList<SupplierField> f;
        for (const auto& [column, control] : std::initializer_list<std::pair<const char*, const char*>>{
                 {"SupplierName", "txtSupplierName"}, {"Address", "txtAddress"}, {"linkmanname", "txtLinkmanName"},
                 {"phone", "txtPhone"}, {"movephone", "txtMovePhone"}, {"PrincipalName", "txtPrincipalName"},
                 {"Principalphone", "txtPrincipalPhone"}, {"Principalmovephone", "txtPrincipalMovePhone"},
                 {"thememo", "txtTheMemo"}, {"tax", "txtTax"}, {"email", "txtEmail"}, {"QQ", "txtQQ"},
                 {"msn", "txtMSN"}, {"WEb", "txtWeb"}})
            f.append({QLatin1String(column), QLatin1String(control)});
        return f;
    }();
    return fields;
}

Rows SupplierService::list() const {
    return m_db.query(QStringLiteral("select Supplier.* from Supplier order by Supplier.SupplierName"));
}

std::optional<SupplierInput> SupplierService::load(const QString& id) const {
    const Rows r = m_db.query(QStringLiteral("select * from Supplier where SupplierID=?"), {id});
    if (r.isEmpty()) return std::nullopt;
    SupplierInput in;
    for (const SupplierField& f : SupplierFields())
        in.insert(f.column, r.first().text(f.column));
    return in;
}

SupplierSaved SupplierService::save(const QString& id, const SupplierInput& in) {
    if (in.value(QStringLiteral("SupplierName")).trimmed().isEmpty())
        return {{}, Refusal(QStringLiteral("请输入供应商名称！"), QStringLiteral("txtSupplierName"))};
    QStringList columns, sets;
    Params values;
    for (const SupplierField& f : SupplierFields()) {
        columns << f.column;
        sets << f.column + QStringLiteral("=?");
        values << in.value(f.column);
    }
    try {
        return m_db.write([&]() -> SupplierSaved {
            if (id.isEmpty()) {
                const QString key = FreshKey(QStringLiteral("Supplier"), QStringLiteral("SupplierID"), m_db);
                Params row = values;
                row << key;
                m_db.exec(QStringLiteral("insert into Supplier (") + columns.join(QLatin1Char(',')) +
                              QStringLiteral(",SupplierID) values (") +
                              QStringLiteral("?,").repeated(int(columns.size())) + QStringLiteral("?)"),
                          row);
                return {key, std::nullopt};
            }
            Params row = values;
            row << id;
            // Deleted meanwhile at another till: nothing to change.
            if (m_db.exec(QStringLiteral("update Supplier set ") + sets.join(QLatin1Char(',')) +
                              QStringLiteral(" where SupplierID=?"),
                          row) == 0)
                return m_db.discard(SupplierSaved{});
            return {id, std::nullopt};
        });
    } catch (const DbError& e) {
        return {{}, Refusal(e.message(QStringLiteral("SaveData"), QStringLiteral("frmSupplier")), {}, Msg::Icon::None)};
    }
}

Refused SupplierService::remove(const QString& id, bool* removed) {
    *removed = false;
    try {
        *removed = m_db.write(
            [&] { return m_db.exec(QStringLiteral("delete from Supplier where SupplierID=?"), {id}) > 0; });
    } catch (const DbError&) {
        // The receipts' link to the supplier holds it.
        return Refusal(QStringLiteral("不能删除此数据，因为已有此供应商的进货数据！"));
    }
    return std::nullopt;
}
