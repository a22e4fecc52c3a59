#include "AppInit.h"
#include "AppState.h"
#include "Db.h"
#include "MessageBox.h"
#include "Venue.h"
#include <QCoreApplication>

#ifndef SINGBOX_VERSION
#define SINGBOX_VERSION "0.0.0"
#endif

void InitResources() {
    Q_INIT_RESOURCE(store);
    Q_INIT_RESOURCE(app);
    Q_INIT_RESOURCE(web);
}

namespace {
void setVersionText() {
    AppState& a = App();
    a.AppVersionText = QStringLiteral("版本: ") + a.AppVersion;
    if (a.IsNetVersion == 1) a.AppVersionText += QStringLiteral(" 网络版");
}
} // namespace

void AppInit(const QString& home) {
    AppState& a = App();
    a.AppKey = QStringLiteral("QnNovaSing");
    a.AppTitle = QStringLiteral("星澜KTV");
    a.AppPath = home;
    a.AppVersion = QStringLiteral(SINGBOX_VERSION);
    if (QCoreApplication::instance()) QCoreApplication::setApplicationName(a.AppTitle);
    a.IsNetVersion = Venue::connection(home).backend == Backend::PostgreSQL ? 1 : 0;
    setVersionText();
}

bool OpenDataBase() {
    const DbConfig config = Venue::connection(App().AppPath);
    try {
        Venue::openAndUpgrade(DB(), config);
        App().IsNetVersion = config.backend == Backend::PostgreSQL ? 1 : 0;
        setVersionText();
        return true;
    } catch (const DbError&) {
        Msg::critical(nullptr, QStringLiteral("没能打开系统的数据库，请检查您的数据库配置是否正确！"));
        return false;
    }
}
