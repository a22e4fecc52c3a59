#pragma once
#include <QString>
#include <functional>

// What the top-up receipt shows: the saved row and the dialog's boxes at saving.
struct ChongzhiReceipt {
    QString chongzhiID;
    QString memberCode, memberName;
    QString balanceBefore; // 储卡余额 as shown
    QString thisMemoney;   // 充值金额
    QString factPay;       // 实收金额
    QString operatorName;
    QString operatorTime; // "yyyy-MM-dd HH:mm" of the saved row
};

// The top-up receipt is printed by the printing subsystem, which installs its printer here.
// frmChongzhi calls PrintChongzhi after the top-up is committed and only when 打印单据 is
// ticked; a printer failure never undoes the top-up. Without a printer nothing happens.
namespace MemberPrinting {
using ChongzhiPrinter = std::function<void(const ChongzhiReceipt&)>;
// An empty function removes the printer.
void setChongzhiPrinter(ChongzhiPrinter printer);
void PrintChongzhi(const ChongzhiReceipt& receipt);
} // namespace MemberPrinting
