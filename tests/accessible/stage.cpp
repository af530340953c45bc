#include "accessible/stage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "gui_support/processes.h"

namespace tavernook {

namespace {

QStringList texts(const QJsonValue& value) {
    return value.toVariant().toStringList();
}

}  // namespace

Stage::Stage(const QProcessEnvironment& environment) {
    process_.setProcessEnvironment(environment);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(TAVERNOOK_SHOTS), {QStringLiteral("--stage")});
}

Stage::~Stage() {
    process_.closeWriteChannel();
    process_.kill();
    process_.waitForFinished(process_time_limit_ms);
}

std::optional<Scene> Stage::next() {
    if (stands_) process_.write("\n");
    while (!process_.canReadLine() && process_.waitForReadyRead(process_time_limit_ms)) {
    }
    stands_ = process_.canReadLine();
    if (!stands_) return std::nullopt;
    const QJsonObject told = QJsonDocument::fromJson(process_.readLine()).object();
    return Scene{told[QLatin1String("scene")].toString(), texts(told[QLatin1String("screens")]),
                 texts(told[QLatin1String("seen")]), told[QLatin1String("front")].toString(),
                 told[QLatin1String("popup")].toBool()};
}

bool Stage::ended_well() {
    process_.waitForFinished(process_time_limit_ms);
    return process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
}

}  // namespace tavernook
