#include "support/Outils.h"

#include "session/Session.h"
#include "store/Base.h"
#include "ui/Boite.h"

#include <QFile>
#include <QProcess>
#include <SQLiteCpp/Statement.h>

namespace essai {

Montant Euros(double v) {
    return Montant::depuisDouble(v);
}

QString AfficheEuros(double v) {
    return AfficheMontant(Euros(v));
}

int Compter(const std::string& sql, const QString& valeur) {
    SQLite::Statement q(Base(), sql);
    if (!valeur.isNull()) q.bind(1, valeur.toStdString());
    return q.executeStep() ? q.getColumn(0).getInt() : -1;
}

void Executer(const std::string& sql) {
    Base().exec(sql);
}

QStringList TextesBoites() {
    QStringList textes;
    for (const ui::EntreeJournal& e : ui::JournalBoites())
        textes << e.texte;
    return textes;
}

QByteArray LireFichier(const QString& chemin) {
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<absent>");
}

QString TextePdf(const QString& chemin) {
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), chemin, QStringLiteral("-")});
    if (!p.waitForFinished(60000)) return {};
    return QString::fromUtf8(p.readAllStandardOutput());
}

QStringList PagesPdf(const QString& chemin) {
    QStringList pages = TextePdf(chemin).split(QLatin1Char('\f'));
    if (!pages.isEmpty() && pages.last().trimmed().isEmpty()) pages.removeLast();
    return pages;
}

} // namespace essai
