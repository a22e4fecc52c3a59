// Start-up and sign-in: program start to the sign-in window, and sign-in to the main window.
#include "AppInit.h"
#include "AppState.h"
#include "Db.h"
#include "MessageBox.h"
#include "BenchVenue.h"
#include "VenueGenerator.h"
#include "Venue.h"
#include "frmLogin.h"
#include "frmMain.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {
QString g_singbox;
QTemporaryDir* g_dir = nullptr;

void prepareVenue() {
    if (g_dir) return;
    g_dir = new QTemporaryDir;
    VenueSize size;
    size.days = 365;
    size.billsPerDay = 40;
    size.openBills = 200;
    OpenGeneratedVenue(*g_dir, size);
    DB().close();
}

void StartToSignInWindow(benchmark::State& state) {
    prepareVenue();
    for (auto _ : state) {
        QElapsedTimer t;
        t.start();
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("SINGBOX_EXIT_WHEN_SHOWN"), QStringLiteral("1"));
        p.setProcessEnvironment(env);
        p.start(g_singbox, {QStringLiteral("--home"), g_dir->path()});
        p.waitForFinished(20000);
        state.SetIterationTime(double(t.nsecsElapsed()) / 1e9);
    }
}

void SignInToMainWindow(benchmark::State& state) {
    prepareVenue();
    Msg::installRecorder();
    for (auto _ : state) {
        QElapsedTimer t;
        t.start();
        {
            frmLogin login;
            login.findChild<QLineEdit*>(QStringLiteral("txtUserName"))->setText(QStringLiteral("admin"));
            login.cmdOK_Click();
            if (login.result() != QDialog::Accepted) state.SkipWithError("sign-in failed");
        }
        frmMain w;
        w.show();
        w.Init();
        w.refreshOperatorPanel();
        QApplication::processEvents();
        state.SetIterationTime(double(t.nsecsElapsed()) / 1e9);
        DB().close();
    }
}
} // namespace

BENCHMARK(StartToSignInWindow)->UseManualTime()->Iterations(1)->Repetitions(9)->ReportAggregatesOnly(true)->Unit(benchmark::kMillisecond);
BENCHMARK(SignInToMainWindow)->UseManualTime()->Iterations(1)->Repetitions(9)->ReportAggregatesOnly(true)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    InitResources();
    g_singbox = QStringLiteral(SINGBOX_EXE);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    delete g_dir;
    return 0;
}
