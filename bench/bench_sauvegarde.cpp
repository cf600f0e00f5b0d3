// Temps de sauvegarde et de restauration d'une base de 100 000 lignes d'écriture : la
// sauvegarde par l'écran (base fermée, deux entrées compressées, historique, base rouverte)
// et la restauration complète (extraction à part, contrôle, renommage).
#include "backup/Backup.h"
#include "backup/Restauration.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/ControleBase.h"
#include "store/Routines.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Fin.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <cstdint>
#include <cstdio>

#include "Generateur.h"

namespace {

constexpr int NombreLignes = 100000;

double Mo(qint64 octets) {
    return static_cast<double>(octets) / (1024.0 * 1024.0);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ui::Application application(argc, argv);
    QTemporaryDir dossier;
    const QString donnees = dossier.filePath(QStringLiteral("donnees"));
    QDir().mkpath(donnees);
    session().DossierDonnees = donnees;
    QFile::copy(QStringLiteral(":/data/maroval.ini"), QDir(donnees).filePath("maroval.ini"));
    QFile::setPermissions(QDir(donnees).filePath("maroval.ini"),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    ui::FixerModeEssai(true);
    ui::ObserverFin(true);

    QElapsedTimer chrono;
    chrono.start();
    generateur::Options options;
    options.dossier = donnees;
    options.lignesVisees = NombreLignes;
    const generateur::Resultat r = generateur::Generer(options);
    generateur::OuvrirGenere(donnees);
    session().DossierDonnees = donnees;
    std::printf("Base de %d lignes d'écriture (%d écritures) faite par le générateur en %lld ms\n",
                r.lignes, r.ecritures, static_cast<long long>(chrono.elapsed()));

    const QString archive = dossier.filePath(QStringLiteral("mesure.sav"));
    {
        ecran::Backup ecran;
        ui::RepondreFichier(archive);
        ui::RepondreBoite(ui::Reponse::OK);
        chrono.restart();
        ecran.Command2_Click();
        const qint64 ms = chrono.elapsed();
        FermerBase();
        std::printf("Sauvegarde (écran, Command2) : %lld ms ; base %.1f Mo, archive %.1f Mo\n",
                    static_cast<long long>(ms),
                    Mo(QFileInfo(QDir(donnees).filePath("maroval.mdb")).size()),
                    Mo(QFileInfo(archive).size()));
    }

    chrono.restart();
    const QString controle = ControlerBaseRestauree(QDir(donnees).filePath("maroval.mdb"));
    std::printf("Contrôle seul (intégrité et tables) : %lld ms %s\n",
                static_cast<long long>(chrono.elapsed()),
                controle.isEmpty() ? "(saine)" : "(REFUSÉE)");

    // Le contrôle que paie chaque démarrage, face au PRAGMA seul sur une connexion simple.
    const QString base = QDir(donnees).filePath("maroval.mdb");
    chrono.restart();
    const DiagnosticBase diagnostic = ControlerBase(base);
    std::printf("Contrôle de la base au démarrage (quick_check et tables) : %lld ms %s\n",
                static_cast<long long>(chrono.elapsed()),
                diagnostic.etat == EtatBase::Saine ? "(saine)" : "(REFUSÉE)");
    {
        chrono.restart();
        SQLite::Database db(base.toStdString(), SQLite::OPEN_READONLY);
        SQLite::Statement q(db, "PRAGMA quick_check");
        q.executeStep();
        std::printf("PRAGMA quick_check seul (SQL simple) : %lld ms\n",
                    static_cast<long long>(chrono.elapsed()));
        chrono.restart();
        SQLite::Statement i(db, "PRAGMA integrity_check");
        i.executeStep();
        std::printf("PRAGMA integrity_check seul (SQL simple) : %lld ms\n",
                    static_cast<long long>(chrono.elapsed()));
    }
    std::printf("Taux de compression de l'archive : %.1f\n",
                static_cast<double>(QFileInfo(base).size()) /
                    static_cast<double>(QFileInfo(archive).size()));

    OuvrirBase(donnees);
    ui::RepondreBoite(ui::Reponse::OK);
    chrono.restart();
    bool fin = false;
    try {
        RestaurerArchive(archive);
    } catch (const ui::FinProgramme&) {
        fin = true;
    }
    std::printf("Restauration complète (extraction, contrôle, renommage) : %lld ms %s\n",
                static_cast<long long>(chrono.elapsed()), fin ? "(réussie)" : "(ÉCHEC)");
    OuvrirBase(donnees);
    {
        SQLite::Statement n(Base(), "SELECT count(*) FROM Ecriture");
        n.executeStep();
        std::printf("Lignes d'écriture après restauration : %d\n", n.getColumn(0).getInt());
    }
    FermerBase();
    return fin ? 0 : 1;
}
