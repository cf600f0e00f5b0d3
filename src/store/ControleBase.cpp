#include "store/ControleBase.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

namespace {

// Table -> colonnes ; les clés en minuscules (la base ignore la casse), les valeurs gardent
// les noms tels que le schéma les écrit, pour les messages.
struct Table {
    QString nom;
    QMap<QString, QString> colonnes;
};
using Structure = QMap<QString, Table>;

Structure LireStructure(SQLite::Database& db) {
    Structure s;
    SQLite::Statement tables(
        db, "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite\\_%' "
            "ESCAPE '\\'");
    while (tables.executeStep()) {
        const std::string nom = tables.getColumn(0).getString();
        Table& t = s[QString::fromStdString(nom).toLower()];
        t.nom = QString::fromStdString(nom);
        SQLite::Statement cols(db, "SELECT name FROM pragma_table_info(?)");
        cols.bind(1, nom);
        while (cols.executeStep()) {
            const QString colonne = QString::fromUtf8(cols.getColumn(0).getText());
            t.colonnes.insert(colonne.toLower(), colonne);
        }
    }
    return s;
}

// Les tables propres au programme (« CREATE TABLE IF NOT EXISTS » du schéma) : une base
// d'une version précédente peut ne pas les avoir, l'ouverture les ajoute.
const QSet<QString>& TablesAjoutees() {
    static const QSet<QString> ajoutees = [] {
        QSet<QString> noms;
        QFile f(QStringLiteral(":/data/schema.sql"));
        if (!f.open(QIODevice::ReadOnly)) return noms;
        static const QRegularExpression creation(
            QStringLiteral("CREATE TABLE IF NOT EXISTS \"([^\"]+)\""));
        for (auto it = creation.globalMatch(QString::fromUtf8(f.readAll())); it.hasNext();)
            noms.insert(it.next().captured(1).toLower());
        return noms;
    }();
    return ajoutees;
}

const Structure& StructureAttendue() {
    static const Structure attendue = [] {
        QFile f(QStringLiteral(":/data/schema.sql"));
        if (!f.open(QIODevice::ReadOnly)) return Structure();
        SQLite::Database db(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        db.exec(f.readAll().toStdString());
        return LireStructure(db);
    }();
    return attendue;
}

QString Guillemets(const QString& nom) {
    return QStringLiteral("« %1 »").arg(nom);
}

QString Ecart(SQLite::Database& db) {
    const Structure& attendue = StructureAttendue();
    if (attendue.isEmpty()) return QStringLiteral("le schéma livré avec Maroval est illisible");
    const Structure lue = LireStructure(db);
    if (lue.isEmpty()) return QStringLiteral("le fichier ne contient aucune table");
    QStringList ecarts;
    QStringList tablesAbsentes;
    for (auto t = attendue.cbegin(); t != attendue.cend(); ++t) {
        const auto l = lue.constFind(t.key());
        if (l == lue.cend()) {
            if (!TablesAjoutees().contains(t.key())) tablesAbsentes << Guillemets(t->nom);
            continue;
        }
        QStringList colonnes;
        for (auto c = t->colonnes.cbegin(); c != t->colonnes.cend(); ++c)
            if (!l->colonnes.contains(c.key())) colonnes << Guillemets(c.value());
        if (!colonnes.isEmpty())
            ecarts << (colonnes.size() == 1 ? QStringLiteral("il manque la colonne %1 dans la "
                                                             "table %2")
                                            : QStringLiteral("il manque les colonnes %1 dans la "
                                                             "table %2"))
                          .arg(colonnes.join(QStringLiteral(", ")), Guillemets(t->nom));
        for (auto c = l->colonnes.cbegin(); c != l->colonnes.cend(); ++c)
            if (!t->colonnes.contains(c.key()))
                ecarts << QStringLiteral("la colonne %1 de la table %2 n'est pas de Maroval")
                              .arg(Guillemets(c.value()), Guillemets(t->nom));
    }
    if (!tablesAbsentes.isEmpty())
        ecarts.prepend((tablesAbsentes.size() == 1 ? QStringLiteral("il manque la table %1")
                                                   : QStringLiteral("il manque les tables %1"))
                           .arg(tablesAbsentes.join(QStringLiteral(", "))));
    for (auto l = lue.cbegin(); l != lue.cend(); ++l)
        if (!attendue.contains(l.key()))
            ecarts << QStringLiteral("la table %1 n'est pas de Maroval").arg(Guillemets(l->nom));
    return ecarts.join(QStringLiteral(" ; "));
}

} // namespace

DiagnosticBase ControlerBase(const QString& chemin, bool complet) {
    DiagnosticBase d;
    const QFileInfo info(chemin);
    if (!info.exists()) return d;
    if (info.size() == 0) {
        d.etat = EtatBase::Etrangere;
        d.raison = QStringLiteral("le fichier est vide");
        return d;
    }
    try {
        SQLite::Database db(QFile::encodeName(chemin).toStdString(), SQLite::OPEN_READONLY);
        SQLite::Statement controle(db, complet ? "PRAGMA integrity_check(20)"
                                               : "PRAGMA quick_check(20)");
        // Le contrôle rend "ok", ou des lignes techniques ; la première suffit au détail.
        QString detail;
        bool sain = true;
        while (controle.executeStep()) {
            const QString texte = QString::fromUtf8(controle.getColumn(0).getText());
            if (texte == QLatin1String("ok")) continue;
            sain = false;
            for (const QString& ligne : texte.split(QLatin1Char('\n')))
                if (detail.isEmpty() && !ligne.startsWith(QLatin1String("***")))
                    detail = ligne.trimmed().left(80);
        }
        if (!sain) {
            d.etat = EtatBase::Endommagee;
            d.raison = QStringLiteral("des parties du fichier sont abîmées ; détail technique : %1")
                           .arg(detail);
            return d;
        }
        const QString ecart = Ecart(db);
        if (!ecart.isEmpty()) {
            d.etat = EtatBase::Etrangere;
            d.raison = ecart;
            return d;
        }
    } catch (const SQLite::Exception& e) {
        // Fichier illisible ou abîmé : dans les deux cas on n'y écrit rien.
        d.etat = EtatBase::Endommagee;
        if ((e.getExtendedErrorCode() & 0xff) == SQLITE_NOTADB) {
            d.raison =
                QStringLiteral("l'en-tête du fichier n'est pas celui d'une base de données "
                               "(fichier d'un autre programme, ou début du fichier détruit)");
        } else {
            d.raison = QStringLiteral("le fichier ne peut pas être lu (%1)")
                           .arg(QString::fromUtf8(e.what()));
        }
        return d;
    }
    d.etat = EtatBase::Saine;
    return d;
}
