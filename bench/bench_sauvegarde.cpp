// Temps de sauvegarde et de restauration d'une base de 100 000 lignes d'écriture : la
// sauvegarde par l'écran (base fermée, deux entrées compressées, historique, base rouverte)
// et la restauration complète (extraction à part, contrôle, renommage).
#include "backup/Backup.h"
#include "backup/Restauration.h"
#include "session/Session.h"
#include "store/Base.h"
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

#if __has_include("Generateur.h")
#define GENERATEUR_LIVRE 1
#include "Generateur.h"
#endif

namespace {

constexpr int NombreLignes = 100000;

// Sans le générateur des écritures : une société, un exercice, quelques comptes et les
// lignes, par des insertions SQL simples.
[[maybe_unused]] void RemplirBase() {
    table::Societe s;
    s.Nom = QStringLiteral("Mesure");
    const int num = AjouterSociete(s);
    const QString cle = CleExercice(num, 2024);
    table::Constante c;
    c.CleCon = cle;
    c.DateDebut = QStringLiteral("20240101");
    c.DateFin = QStringLiteral("20241231");
    c.LastNumEcrit = NombreLignes;
    AjouterConstante(c);
    SQLite::Transaction t(Base());
    SQLite::Statement q(Base(), "INSERT INTO Ecriture (CleCpt, NumEcr, DateEcr, DatePiece, "
                                "NumCptEcr, ErEcr, MntEcr, LibEcr, DCEcr, Journal, Fin) "
                                "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    const char* comptes[] = {"401", "411", "512", "607", "707", "44566"};
    for (int i = 1; i <= NombreLignes; ++i) {
        const QString date = QStringLiteral("2024%1%2")
                                 .arg(1 + i % 12, 2, 10, QLatin1Char('0'))
                                 .arg(1 + i % 28, 2, 10, QLatin1Char('0'));
        q.bind(1, cle.toStdString());
        q.bind(2, static_cast<double>(i));
        q.bind(3, date.toStdString());
        q.bind(4, date.toStdString());
        q.bind(5, comptes[i % 6]);
        q.bind(6, i % 2 ? "E2" : "R2");
        q.bind(7, static_cast<std::int64_t>(i % 977) * 1234500);
        q.bind(8, QStringLiteral("Facture %1 client %2").arg(i).arg(i % 313).toStdString());
        q.bind(9, i % 2 ? "D" : "C");
        q.bind(10, i % 5 ? "V" : "A");
        q.bind(11, i % 2 == 0);
        q.exec();
        q.reset();
    }
    t.commit();
}

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
#ifdef GENERATEUR_LIVRE
    generateur::Options options;
    options.dossier = donnees;
    options.lignesVisees = NombreLignes;
    const generateur::Resultat r = generateur::Generer(options);
    generateur::OuvrirGenere(donnees);
    session().DossierDonnees = donnees;
    std::printf("Base de %d lignes d'écriture (%d écritures) faite par le générateur en %lld ms\n",
                r.lignes, r.ecritures, static_cast<long long>(chrono.elapsed()));
#else
    OuvrirBase(donnees);
    RemplirBase();
    std::printf("Base de %d lignes d'écriture faite en %lld ms (insertions SQL directes)\n",
                NombreLignes, static_cast<long long>(chrono.elapsed()));
#endif

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
