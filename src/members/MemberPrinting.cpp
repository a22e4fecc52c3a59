#include "MemberPrinting.h"

namespace MemberPrinting {
namespace {
ChongzhiPrinter& printer() {
    static ChongzhiPrinter p;
    return p;
}
} // namespace

void setChongzhiPrinter(ChongzhiPrinter p) {
    printer() = std::move(p);
}

void PrintChongzhi(const ChongzhiReceipt& receipt) {
    if (printer()) printer()(receipt);
}
} // namespace MemberPrinting
