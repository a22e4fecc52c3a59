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
        return QList<MenuCommand>{
            m(op, "mnuOpOpen", "顾客开单", "F2", "D001"),
            m(op, "mnuOpExpense", "增加消费", "F3", "D002"),
            m(op, "mnuPrintExpense", "打印清单", "F12"),
            m(op, "mnuReprintExpense", "重打"),
            m(op, "mnuPrintQueue", "打印队列"),
            m(op, "mnuOpEnd", "顾客结帐", "F4", "D003"),
            m(op, "mnuPayAfter", "挂帐结算", "", "D003"),
            m(op, "mnuOutSale", "外卖", "", "D015"),
            sep(op),
            m(op, "mnuHouseStop", "暂停使用", "F8", "D004"),
            m(op, "mnuHouseResume", "恢复使用", "F9", "D005"),
            m(op, "mnuHouseChange", "换台", "", "D006"),
            m(op, "mnuExpenseAmalgamate", "并台", "", "D010"),
            sep(op),
            m(op, "mnuReservation", "顾客预订", "", "C010"),
            m(op, "mnuReservationView", "查看预订", "", "C011"),
            m(op, "mnuReservationCancel", "取消预订", "", "C010"),
            sep(op),
            m(op, "mnuFindHouse", "包厢定位", "F5"),
            sep(op),
            m(op, "mnuCheckForm", "收银对帐", "", "C040"),
            m(op, "mnuCheckInfo", "收银对帐记录", "", "C043"),
            m(q, "mnuFind", "营业查询", "", "F001"),
            m(q, "mnuBusFindIncome", "营业利润统计", "", "F002"),
            m(q, "mnuBusReorder", "销售排行", "", "F003"),
            m(q, "mnuFindChart", "统计图表", "", "F020"),
            sep(q),
            m(q, "mnuFindChongzhi", "储卡充值记录", "", "C020"),
            sep(q),
            m(q, "mnuWareInList", "查看进货记录", "", "C027"),
            m(q, "mnuShowWareLossList", "查看报损记录", "", "C028"),
            m(q, "mnuWarehouseNum", "查看库存情况", "", "C30"),
            m(set, "mnuBusCommon", "营业设置"),
            m(set, "mnuEmployee", "员工管理"),
            sep(set),
            m(set, "mnuSetupMember", "会员设置", "", "C007"),
            m(set, "mnuMember", "会员管理"),
            sep(set),
            m(set, "mnuSupplierList", "供应商管理", "", "C26"),
            m(set, "mnuWareIn", "商品进货", "", "C025"),
            m(set, "mnuWareLoss", "商品报溢/报损", "", "C030"),
            m(sys, "mnuShowToolbar", "显示工具栏", "", "", true),
            m(sys, "mnuShowToolbarText", "显示工具栏文字", "", "", true),
            sep(sys),
            m(sys, "mnuOperator", "操作员及权限"),
            m(sys, "mnuChangePw", "修改登录密码"),
            m(sys, "mnuLog", "查看操作日志", "", "F010"),
            m(sys, "mnuSetup", "数据管理...", "", "S02"),
            m(sys, "mnuDBSQL", "数据库操作", "", "S050"),
            sep(sys),
            m(sys, "mnuSMSSetup", "短信设置..."),
            m(sys, "mnuSMSSend", "发送短信..."),
            sep(sys),
            m(sys, "mnuUpdate", "升级系统..."),
            sep(sys),
            m(sys, "mnuRelogin", "重新登录"),
            m(sys, "mnuExit", "退出系统"),
            m(tools, "mnuOtherToolsCalc", "计算器", "F11"),
            m(tools, "mnuOtherToolsNotepad", "记事本"),
            m(help, "mnuReturnTop", "系统首页"),
            m(help, "mnuQNHelp", "动态帮助", "F1", "", true),
            m(help, "mnuHelpfile", "帮助主题"),
            sep(help),
            m(help, "mnuAbout", "关于"),
        };
    }();
    return list;
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
