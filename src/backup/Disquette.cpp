#include "backup/Disquette.h"

#include "base/Durable.h"
#include "base/Szdd.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/BaseSauve.h"
#include "store/Routines.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <map>

namespace disquette {

namespace {

QString Sur(const QString& nom) {
    return QDir(DossierDisquette()).filePath(nom);
}

QString CheminEtiquette() {
    return Sur(QStringLiteral("sauve.ini"));
}

// Les colonnes de la table dans la base ouverte (« main ») ou dans sauve.mdb attachée.
QStringList Colonnes(const std::string& base, const std::string& table) {
    SQLite::Statement q(Base(), "PRAGMA " + base + ".table_info(\"" + table + "\")");
    QStringList colonnes;
    while (q.executeStep())
        colonnes << QString::fromUtf8(q.getColumn(1).getText());
    return colonnes;
}

// Les lignes d'une table de sauve.mdb insérées dans la base, colonne par colonne : celles que
// les deux bases ont en commun.
void Inserer(const std::string& table, bool ignorerDoublons) {
    const QStringList dansSauve = Colonnes("sauve", table);
    if (dansSauve.isEmpty()) throw SQLite::Exception("table absente de la sauvegarde : " + table);
    QStringList communes;
    for (const QString& c : Colonnes("main", table))
        if (dansSauve.contains(c, Qt::CaseInsensitive))
            communes << QLatin1Char('"') + c + QLatin1Char('"');
    const std::string liste = communes.join(QLatin1Char(',')).toStdString();
    Base().exec(std::string(ignorerDoublons ? "INSERT OR IGNORE" : "INSERT") + " INTO main." +
                table + " (" + liste + ") SELECT " + liste + " FROM sauve." + table);
}

} // namespace

bool TesterDisquette() {
    QFile essai(Sur(QStringLiteral("test.tst")));
    if (!essai.open(QIODevice::WriteOnly)) return false;
    const bool ecrit = essai.write("test") == 4 && essai.flush();
    essai.close();
    return QFile::remove(essai.fileName()) && ecrit;
}

bool EtiquettePresente() {
    return QFile::exists(CheminEtiquette());
}

Etiquette LireEtiquetteDisquette() {
    const FichierProfil f(CheminEtiquette());
    const auto lire = [&f](const char* cle) {
        return f.Lire(QStringLiteral("Etiquette"), QString::fromLatin1(cle), QStringLiteral("*"));
    };
    return {lire("Societe"), lire("Exercice"), lire("NumDisk"),
            lire("NomSoc"),  lire("Date"),     lire("LastNumEcrit")};
}

std::vector<Sauvegarde> Sauvegardes(int numSoc, int exercice) {
    SQLite::Statement q(Base(), "SELECT Date, NumDisk, LastNumEcrit FROM Sauve WHERE Societe = ? "
                                "AND Exercice = ? ORDER BY rowid");
    q.bind(1, numSoc);
    q.bind(2, exercice);
    std::vector<Sauvegarde> s;
    while (q.executeStep())
        s.push_back({QString::fromUtf8(q.getColumn(0).getText()).trimmed(), q.getColumn(1).getInt(),
                     q.getColumn(2).getDouble()});
    return s;
}

int DisqueSuivant(const std::vector<Sauvegarde>& sauvegardes) {
    // Une disquette jamais servie compte comme très ancienne, la 1 avant la 2 avant la 3.
    std::map<int, QString> derniere = {{1, QStringLiteral("198001010000")},
                                       {2, QStringLiteral("198501010000")},
                                       {3, QStringLiteral("199001010000")}};
    std::map<int, bool> servie;
    for (const Sauvegarde& s : sauvegardes) {
        if (s.numDisk < 1 || s.numDisk > 3) continue;
        if (!servie[s.numDisk] || s.date > derniere[s.numDisk]) derniere[s.numDisk] = s.date;
        servie[s.numDisk] = true;
    }
    int choisie = 1;
    for (int n = 2; n <= 3; ++n)
        if (derniere[n] < derniere[choisie]) choisie = n;
    return choisie;
}

QStringList FichiersDisquette() {
    return QDir(DossierDisquette()).entryList(QDir::Files | QDir::Hidden | QDir::System);
}

bool ViderDisquette() {
    bool tout = true;
    for (const QString& f : FichiersDisquette())
        tout = QFile::remove(Sur(f)) && tout;
    return tout;
}

bool EcrireEtiquette(int numDisk, double lastNumEcrit, const QString& date) {
    const Session& s = session();
    FichierProfil f(CheminEtiquette());
    const QString plan = FichierProfil(CheminIni())
                             .Lire(QStringLiteral("Plans Types"),
                                   QStringLiteral("PlanChoisi") + QString::number(s.NumSocCourante),
                                   QStringLiteral("0000"));
    return f.EcrireCles(QStringLiteral("Etiquette"),
                        {{QStringLiteral("LastNumEcrit"), QString::number(lastNumEcrit, 'f', 0)},
                         {QStringLiteral("Societe"), QString::number(s.NumSocCourante)},
                         {QStringLiteral("NomSoc"), s.NomSocCourante},
                         {QStringLiteral("Exercice"), QString::number(s.ExerciceCourant)},
                         {QStringLiteral("Date"), date},
                         {QStringLiteral("NumDisk"), QString::number(numDisk)}}) &&
           f.Ecrire(QStringLiteral("Plans Types"),
                    QStringLiteral("PlanChoisi") + QString::number(s.NumSocCourante), plan);
}

void RetirerSauvegarde(int numSoc, int exercice, int numDisk) {
    SQLite::Statement q(Base(),
                        "DELETE FROM Sauve WHERE Societe = ? AND Exercice = ? AND NumDisk = ?");
    q.bind(1, numSoc);
    q.bind(2, exercice);
    q.bind(3, numDisk);
    q.exec();
}

void NoterSauvegarde(int numSoc, int exercice, int numDisk, double lastNumEcrit,
                     const QString& date) {
    SQLite::Transaction t(Base());
    RetirerSauvegarde(numSoc, exercice, numDisk);
    SQLite::Statement q(Base(),
                        "INSERT INTO Sauve (Date, Societe, Exercice, LastNumEcrit, NumDisk) "
                        "VALUES (?, ?, ?, ?, ?)");
    q.bind(1, date.toStdString());
    q.bind(2, numSoc);
    q.bind(3, exercice);
    q.bind(4, lastNumEcrit);
    q.bind(5, numDisk);
    q.exec();
    t.commit();
}

bool CopierExercice(int numSoc, int exercice, const std::function<void(int)>& avance,
                    QString* erreur) {
    const QString dossier = session().DossierDonnees;
    if (!RefaireBaseSauve(dossier)) {
        if (erreur) *erreur = QStringLiteral("le modèle sauveb.mdb ne peut être recopié");
        return false;
    }
    const std::string cle = CleExercice(numSoc, exercice).toStdString();
    const std::string soc = std::to_string(numSoc), ex = std::to_string(exercice);
    struct Copie {
        const char* table;
        std::string condition;
        std::vector<std::string> valeurs;
        const char* ordre;
    };
    const Copie copies[] = {{"Budget", "CleCpt = ?", {cle}, ""},
                            {"Compte", "CleCpt = ?", {cle}, "NumCpt"},
                            {"Constante", "CleCon = ?", {cle}, ""},
                            {"Ecriture", "CleCpt = ?", {cle}, "NumEcr"},
                            {"Section", "CleCpt = ?", {cle}, ""},
                            {"Societe", "NumSoc = ?", {soc}, ""},
                            {"Ventilation", "CleCpt = ?", {cle}, ""},
                            {"Sauve", "Societe = ? AND Exercice = ?", {soc, ex}, ""}};
    try {
        SauveAttachee sauve(dossier);
        int faites = 0;
        for (const Copie& c : copies) {
            CopierVersSauve(c.table, c.condition, c.valeurs, c.ordre);
            if (avance) avance(++faites);
        }
    } catch (const SQLite::Exception& e) {
        if (erreur) *erreur = QString::fromUtf8(e.what());
        return false;
    }
    return true;
}

QString Compresseur() {
    const QString donne = qEnvironmentVariable("MAROVAL_SZDD");
    if (!donne.isEmpty()) return donne;
    // À côté du programme quand il est construit ; installé, parmi ses programmes auxiliaires.
    const QDir programme(QCoreApplication::applicationDirPath());
    const QString voisin = programme.filePath(QStringLiteral("maroval-szdd"));
    const QString installe = programme.filePath(QStringLiteral("../libexec/maroval/maroval-szdd"));
    return QFile::exists(voisin) || !QFile::exists(installe) ? voisin : QDir::cleanPath(installe);
}

QString ScriptSauvegarde() {
    const QString chemin = QDir(session().DossierDonnees).filePath(QStringLiteral("sauveg.sh"));
    QFile livre(QStringLiteral(":/data/sauveg.sh"));
    if (livre.open(QIODevice::ReadOnly)) {
        QSaveFile f(chemin);
        if (f.open(QIODevice::WriteOnly) && f.write(livre.readAll()) >= 0) f.commit();
    }
    QFile::setPermissions(chemin,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    return chemin;
}

bool DecompresserFichier(const QString& source, const QString& cible) {
    QFile entree(source);
    if (!entree.open(QIODevice::ReadOnly)) return false;
    const QByteArray compresse = entree.readAll();
    QByteArray donnees;
    // Une base compressée ne grossit pas de plus de huit fois ; borne haute de prudence.
    const qint64 limite = std::max<qint64>(qint64(64) * 1024 * 1024, compresse.size() * 16);
    if (!DecompresserSzdd(compresse, donnees, nullptr, limite)) return false;
    QSaveFile sortie(cible);
    if (!sortie.open(QIODevice::WriteOnly) || sortie.write(donnees) != donnees.size()) return false;
    return sortie.commit();
}

Restauration RestaurerExercice() {
    try {
        SauveAttachee sauve(session().DossierDonnees);
        // La société peut déjà être là : elle reste telle quelle.
        Inserer("Societe", true);
        // L'exercice entier ou rien : une erreur au milieu ne laisse pas une moitié d'exercice.
        SQLite::Transaction t(Base());
        try {
            Inserer("Budget", false);
        } catch (const SQLite::Exception&) {
            return Restauration::Existe;
        }
        for (const char* table :
             {"Compte", "Constante", "Ecriture", "Section", "Ventilation", "Sauve"})
            Inserer(table, false);
        t.commit();
    } catch (const SQLite::Exception&) {
        return Restauration::Erreur;
    }
    return Restauration::Faite;
}

} // namespace disquette
