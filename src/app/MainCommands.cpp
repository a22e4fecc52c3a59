#include "MainCommands.h"

namespace {
MenuCommand sep(const QString& menu) { return {menu, {}, {}, {}, {}, false}; }
} // namespace

const QList<MenuCommand>& MenuCommands() {
    static const QList<MenuCommand> list = [] {
        const QString op = QStringLiteral("营业(&B)"), q = QStringLiteral("查询(&Q)"), set = QStringLiteral("设置(&S)"),
                      sys = QStringLiteral("系统(&Y)"), tools = QStringLiteral("工具(&T)"), help = QStringLiteral("帮助(&H)");
        auto m = [](const QString& menu, const char* name, const char* caption, const char* key = "",
                    const char* right = "", bool checkable = false) {
            return MenuCommand{menu, QLatin1String(name), QString::fromUtf8(caption), QLatin1String(key),
                               QLatin1String(right), checkable};
        };
        // The home page's words for a command.
        auto w = [](MenuCommand c, std::initializer_list<const char*> words) {
            for (const char* word : words)
                c.words << QLatin1String(word);
            return c;
        };
        // Reached from the home page only.
        const QString page;
        return QList<MenuCommand>{
            m(op, "mnuOpOpen", "顾客开单", "F2", "D001"),
            m(op, "mnuOpExpense", "增加消费", "F3", "D002"),
            m(op, "mnuPrintExpense", "打印清单", "F12"),
            m(op, "mnuReprintExpense", "重打"),
            m(op, "mnuPrintQueue", "打印队列"),
            m(op, "mnuOpEnd", "顾客结帐", "F4", "D003"),
            w(m(op, "mnuPayAfter", "挂帐结算", "", "D003"), {"gzcl"}),
            w(m(op, "mnuOutSale", "外卖", "", "D015"), {"outsale"}),
            sep(op),
            m(op, "mnuHouseStop", "暂停使用", "F8", "D004"),
            m(op, "mnuHouseResume", "恢复使用", "F9", "D005"),
            m(op, "mnuHouseChange", "换台", "", "D006"),
            m(op, "mnuExpenseAmalgamate", "并台", "", "D010"),
            sep(op),
            w(m(op, "mnuReservation", "顾客预订", "", "C010"), {"doreservation"}),
            m(op, "mnuReservationView", "查看预订", "", "C011"),
            m(op, "mnuReservationCancel", "取消预订", "", "C010"),
            sep(op),
            m(op, "mnuFindHouse", "包厢定位", "F5"),
            sep(op),
            w(m(op, "mnuCheckForm", "收银对帐", "", "C040"), {"checkform"}),
            w(m(op, "mnuCheckInfo", "收银对帐记录", "", "C043"), {"shouyininfo"}),
            w(m(q, "mnuFind", "营业查询", "", "F001"), {"find0"}),
            w(m(q, "mnuBusFindIncome", "营业利润统计", "", "F002"), {"findbusincome0"}),
            w(m(q, "mnuBusReorder", "销售排行", "", "F003"), {"findpaihang", "showbusreorder0"}),
            w(m(q, "mnuFindChart", "统计图表", "", "F020"), {"showchart", "dataandchart"}),
            sep(q),
            w(m(q, "mnuFindChongzhi", "储卡充值记录", "", "C020"), {"findchongzhi0"}),
            sep(q),
            w(m(q, "mnuWareInList", "查看进货记录", "", "C027"), {"wareinlist"}),
            w(m(q, "mnuShowWareLossList", "查看报损记录", "", "C028"), {"warelosslist"}),
            w(m(q, "mnuWarehouseNum", "查看库存情况", "", "C30"), {"showwarehousenum"}),
            m(set, "mnuBusCommon", "营业设置"),
            w(m(set, "mnuEmployee", "员工管理"), {"employee"}),
            sep(set),
            w(m(set, "mnuSetupMember", "会员设置", "", "C007"), {"membersetup", "showsetmember"}),
            w(m(set, "mnuMember", "会员管理"), {"memberedit", "showmember"}),
            sep(set),
            w(m(set, "mnuSupplierList", "供应商管理", "", "C26"), {"supplier"}),
            w(m(set, "mnuWareIn", "商品进货", "", "C025"), {"warein"}),
            w(m(set, "mnuWareLoss", "商品报溢/报损", "", "C030"), {"wareloss"}),
            m(sys, "mnuShowToolbar", "显示工具栏", "", "", true),
            m(sys, "mnuShowToolbarText", "显示工具栏文字", "", "", true),
            sep(sys),
            m(sys, "mnuOperator", "操作员及权限"),
            w(m(sys, "mnuChangePw", "修改登录密码"), {"changepw"}),
            w(m(sys, "mnuLog", "查看操作日志", "", "F010"), {"showlog"}),
            w(m(sys, "mnuSetup", "数据管理...", "", "S02"), {"showsyssetup"}),
            m(sys, "mnuDBSQL", "数据库操作", "", "S050"),
            sep(sys),
            m(sys, "mnuSMSSetup", "短信设置..."),
            m(sys, "mnuSMSSend", "发送短信..."),
            sep(sys),
            m(sys, "mnuUpdate", "升级系统..."),
            sep(sys),
            w(m(sys, "mnuRelogin", "重新登录"), {"relogin"}),
            w(m(sys, "mnuExit", "退出系统"), {"appexit"}),
            m(tools, "mnuOtherToolsCalc", "计算器", "F11"),
            m(tools, "mnuOtherToolsNotepad", "记事本"),
            m(help, "mnuReturnTop", "系统首页"),
            m(help, "mnuQNHelp", "动态帮助", "F1", "", true),
            m(help, "mnuHelpfile", "帮助主题"),
            sep(help),
            m(help, "mnuAbout", "关于"),
            // The home page's own commands, in the order they are looked up.
            w(m(page, "webSetWebTop", "设为系统首页"), {"setwebtop"}),
            w(m(page, "webCommon", "日常营业"), {"common"}),
            w(m(page, "webOptionPrint", "打印及其它设置"), {"showoptionprint"}),
            w(m(page, "webOptionPayLevel", "计费标准"), {"showoptionpaylevel"}),
            w(m(page, "webOptionHouse", "包厢设置"), {"showoptionhouse"}),
            w(m(page, "webOptionWare", "商品设置"), {"showoptionware"}),
            w(m(page, "webOptionOperator", "操作员及权限"), {"showoptionoperator"}),
            w(m(page, "webReservation", "预订管理"), {"showreservation"}),
            w(m(page, "webLogSetup", "日志设置", "", "F015"), {"setuplog"}),
            w(m(page, "webFind1", "营业查询", "", "F001"), {"find1"}),
            w(m(page, "webFind2", "营业查询", "", "F001"), {"find2"}),
            w(m(page, "webFindIncome1", "营业利润统计", "", "F002"), {"findbusincome1"}),
            w(m(page, "webFindIncome2", "营业利润统计", "", "F002"), {"findbusincome2"}),
            w(m(page, "webBusReorder1", "销售排行", "", "F003"), {"showbusreorder1"}),
            w(m(page, "webBusReorder2", "销售排行", "", "F003"), {"showbusreorder2"}),
            w(m(page, "webChongzhi", "储卡充值记录"), {"chongzhi"}),
        };
    }();
    return list;
}

const MenuCommand* CommandForWord(const QString& word) {
    const QString lower = word.toLower();
    for (const MenuCommand& c : MenuCommands())
        if (c.words.contains(lower)) return &c;
    return nullptr;
}

const QList<ToolCommand>& ToolCommands() {
    static const QList<ToolCommand> list = [] {
        auto t = [](const char* key, const char* caption, const char* glyph, const char* color) {
            return ToolCommand{QLatin1String(key), QString::fromUtf8(caption), QString::fromUtf8(glyph),
                               QLatin1String(color)};
        };
        return QList<ToolCommand>{
            t("HOME", "首页", "首", "#546e7a"),       t("COMMON", "营业", "营", "#2e7d32"),
            t("OPENHOUSE", "开单", "开", "#ef6c00"),  t("EXPENSE", "点单", "点", "#f9a825"),
            t("CLOSEHOUSE", "结帐", "结", "#c62828"), t("OUTSALE", "外卖", "卖", "#6d4c41"),
            t("RESERVATION", "预订", "订", "#1565c0"), t("CHECKFORM", "对帐", "对", "#00838f"),
            t("MEMBER", "会员", "会", "#8e24aa"),     t("CHONGZHI", "充值", "充", "#ad1457"),
            t("EMPLOYEE", "员工", "员", "#5d4037"),   t("OPTION", "设置", "设", "#455a64"),
            t("FIND", "查询", "查", "#283593"),       t("REPORT", "报表", "表", "#37474f"),
            t("RELOGIN", "换班", "换", "#607d8b"),    t("EXIT", "退出", "退", "#757575"),
        };
    }();
    return list;
}
