#include "support/ProcessusFils.h"

#include <QCoreApplication>
#include <QProcess>

namespace support {

bool EstProcessusFils() {
    return qEnvironmentVariable("MAROVAL_ENFANT") == QLatin1String("1");
}

ResultatFils LancerFonctionEnFils(const QString& fonctionDeTest, int delaiMs) {
    QProcess fils;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("MAROVAL_ENFANT"), QStringLiteral("1"));
    fils.setProcessEnvironment(env);
    fils.start(QCoreApplication::applicationFilePath(), {fonctionDeTest});
    ResultatFils resultat;
    resultat.termine = fils.waitForFinished(delaiMs);
    if (!resultat.termine) {
        fils.kill();
        fils.waitForFinished(2000);
    }
    resultat.plante = fils.exitStatus() == QProcess::CrashExit;
    resultat.code = fils.exitCode();
    resultat.sortie = QString::fromUtf8(fils.readAllStandardOutput());
    resultat.erreurs = QString::fromUtf8(fils.readAllStandardError());
    return resultat;
}

} // namespace support
