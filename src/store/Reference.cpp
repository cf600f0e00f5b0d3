#include "store/Reference.h"

#include "store/Base.h"

#include <QFile>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <stdexcept>

FichierReference LireFichierReference(const QString& contenu) {
    FichierReference f;
    const QStringList lignes = contenu.split(QLatin1Char('\n'));
    int numero = 0;
    for (QString ligne : lignes) {
        ++numero;
        if (ligne.endsWith(QLatin1Char('\r'))) ligne.chop(1);
        if (ligne.trimmed().isEmpty() || ligne.startsWith(QLatin1Char('#'))) continue;
        const QStringList champs = ligne.split(QLatin1Char('\t'));
        if (f.colonnes.isEmpty()) {
            for (const QString& c : champs)
                f.colonnes << c.trimmed();
            continue;
        }
        if (champs.size() != f.colonnes.size()) {
            f.erreur = QStringLiteral("ligne %1 : %2 champs au lieu de %3")
                           .arg(numero)
                           .arg(champs.size())
                           .arg(f.colonnes.size());
            return f;
        }
        f.lignes << champs;
    }
    return f;
}

int ChargerTableReference(SQLite::Database& db, const QString& table, const QString& contenu) {
    const FichierReference f = LireFichierReference(contenu);
    if (!f.erreur.isEmpty())
        throw std::runtime_error(QStringLiteral("Table de référence %1 mal formée : %2")
                                     .arg(table, f.erreur)
                                     .toStdString());
    if (f.colonnes.isEmpty()) return 0;
    QStringList noms, marques;
    QList<int> largeurs;
    QList<bool> entiers;
    for (const QString& c : f.colonnes) {
        noms << '"' + c + '"';
        marques << QStringLiteral("?");
        largeurs << LargeurColonne(table, c);
        SQLite::Statement type(db, "SELECT type FROM pragma_table_info(?) WHERE name = ?");
        type.bind(1, table.toStdString());
        type.bind(2, c.toStdString());
        if (!type.executeStep())
            throw std::runtime_error(
                QStringLiteral("Colonne inconnue %1 dans la table %2").arg(c, table).toStdString());
        entiers << QString::fromStdString(type.getColumn(0).getString())
                       .startsWith(QStringLiteral("INTEGER"), Qt::CaseInsensitive);
    }
    SQLite::Transaction t(db);
    SQLite::Statement ins(db, QStringLiteral("INSERT INTO \"%1\" (%2) VALUES (%3)")
                                  .arg(table, noms.join(','), marques.join(','))
                                  .toStdString());
    for (const QStringList& l : f.lignes) {
        ins.reset();
        for (int i = 0; i < l.size(); ++i) {
            if (entiers[i])
                ins.bind(i + 1, static_cast<std::int64_t>(l[i].trimmed().toLongLong()));
            else
                ins.bind(i + 1, TexteRange(l[i], largeurs[i]).toStdString());
        }
        ins.exec();
    }
    t.commit();
    return static_cast<int>(f.lignes.size());
}

void ChargerTablesReference(SQLite::Database& db) {
    const struct {
        const char* table;
        const char* fichier;
    } tables[] = {{"filtre", ":/data/filtre.tsv"},
                  {"Tableau", ":/data/tableau.tsv"},
                  {"PlanType", ":/data/plantype.tsv"}};
    for (const auto& t : tables) {
        QFile f(QString::fromLatin1(t.fichier));
        if (!f.open(QIODevice::ReadOnly)) continue;
        ChargerTableReference(db, QString::fromLatin1(t.table), QString::fromUtf8(f.readAll()));
    }
}
