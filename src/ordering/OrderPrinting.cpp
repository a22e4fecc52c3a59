#include "OrderPrinting.h"

namespace {
class NoPrinting : public OrderPrinting {
  public:
    void PrintThis(const OrderBatch&, bool) override {}
};

std::unique_ptr<OrderPrinting>& installed() {
    static std::unique_ptr<OrderPrinting> p = std::make_unique<NoPrinting>();
    return p;
}
} // namespace

OrderPrinting& OrderPrinting::instance() {
    return *installed();
}

void OrderPrinting::install(std::unique_ptr<OrderPrinting> printing) {
    installed() = printing ? std::move(printing) : std::make_unique<NoPrinting>();
}
