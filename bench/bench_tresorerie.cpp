// Mesures de la trésorerie sur une comptabilité générée de 2 000 clients et 60 000 lignes :
// lettrage automatique de tous les clients, ouverture du rapprochement sur un compte de
// banque de 20 000 lignes, chacun à côté d'une simple lecture des mêmes lignes.

#include "Generateur.h"
#include "session/Session.h"
#include "store/Base.h"
#include "treasury/DonneesTresor.h"
#include "treasury/Rappr.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QElapsedTimer>
#include <QPushButton>
#include <QTemporaryDir>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <cstdio>

namespace {

double Ms(const QElapsedTimer& c) {
    return static_cast<double>(c.nsecsElapsed()) / 1e6;
}

// Lecture simple : chaque ligne de la requête parcourue, une colonne lue.
int Parcourir(const std::string& sql) {
    SQLite::Statement q(Base(), sql);
    q.bind(1, CleCourante().toStdString());
    int n = 0;
    long long somme = 0;
    while (q.executeStep()) {
        somme += q.getColumn(1).getInt64();
        ++n;
    }
    return somme == 42 ? n + 1 : n;
}

int Compter(const std::string& sql) {
    SQLite::Statement q(Base(), sql);
    q.bind(1, CleCourante().toStdString());
    return q.executeStep() ? q.getColumn(0).getInt() : 0;
}

} // namespace

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    QTemporaryDir dossier;
    generateur::Options options;
    options.dossier = dossier.path();
    options.lignesVisees = 60000;
    options.clients = 2000;
    options.reglementsDesFactures = true;
    const generateur::Resultat r = generateur::Generer(options);
    generateur::OuvrirGenere(dossier.path());
    std::printf("Comptabilité générée : %d lignes, %d clients en %.1f s\n", r.lignes,
                options.clients, r.secondes);

    const std::string lignesClients =
        "SELECT e.NumEcr, e.MntEcr FROM Ecriture e JOIN Compte c ON c.CleCpt = e.CleCpt AND "
        "c.NumCpt = e.NumCptEcr WHERE e.CleCpt = ?1 AND c.Menu = 170 AND e.Lettrage = 0 ORDER BY "
        "e.NumCptEcr, e.NumEcr";
    QElapsedTimer chrono;
    chrono.start();
    const int lues = Parcourir(lignesClients);
    const double simple = Ms(chrono);
    const int comptes = tresor::NombreComptes(CleCourante(), tresor::MenuClients);
    chrono.restart();
    tresor::LettrerClasse(CleCourante(), tresor::MenuClients, session().ExerciceCourant, {});
    const double lettrage = Ms(chrono);
    const int lettrees = Compter("SELECT count(*) FROM Ecriture e JOIN Compte c ON c.CleCpt = "
                                 "e.CleCpt AND c.NumCpt = e.NumCptEcr WHERE e.CleCpt = ?1 AND "
                                 "c.Menu = 170 AND e.Lettrage > 0");
    std::printf("Lignes des clients : %d lignes\n", lues);
    std::printf("Lecture simple des lignes des clients : %.0f ms\n", simple);
    std::printf("Lettrage automatique des clients : %.0f ms\n", lettrage);
    std::printf("Comptes de clients lettrés : %d comptes\n", comptes);
    std::printf("Lignes de clients lettrées : %d lignes\n", lettrees);

    // La banque portée à 20 000 lignes, une sur trois pointée.
    const std::string banque = "SELECT count(*) FROM Ecriture WHERE CleCpt = ?1 AND NumCptEcr = "
                               "'512'";
    int lignesBanque = Compter(banque);
    {
        SQLite::Transaction t(Base());
        SQLite::Statement q(Base(), "INSERT INTO Ecriture (CleCpt, NumEcr, DateEcr, DatePiece, "
                                    "NumCptEcr, MntEcr, LibEcr, DCEcr, Journal, Lettrage) VALUES "
                                    "(?, ?, '20241230', '20241230', '512', ?, 'Remise', 'D', "
                                    "'T', ?)");
        for (int i = 0; lignesBanque + i < 20000; ++i) {
            q.bind(1, CleCourante().toStdString());
            q.bind(2, 1000000.0 + i);
            q.bind(3, static_cast<int64_t>(100000 + i * 100));
            q.bind(4, i % 3 == 0 ? 1 : 0);
            q.exec();
            q.reset();
        }
        t.commit();
    }
    lignesBanque = Compter(banque);
    chrono.restart();
    const int banqueLues = Parcourir("SELECT NumEcr, MntEcr, DateEcr, LibEcr, DCEcr, Lettrage "
                                     "FROM Ecriture WHERE CleCpt = ?1 AND NumCptEcr = '512' "
                                     "ORDER BY NumEcr");
    const double simpleBanque = Ms(chrono);
    chrono.restart();
    ecran::Rappr rappr;
    rappr.findChild<QPushButton*>("Command1")->click();
    const double ouverture = Ms(chrono);
    const int affichees = rappr.findChild<ui::Grille*>("Tree2")->NombreLignes();
    std::printf("Lignes du compte de banque : %d lignes\n", lignesBanque);
    std::printf("Lecture simple des lignes de la banque : %.0f ms (%d lignes)\n", simpleBanque,
                banqueLues);
    std::printf("Ouverture du rapprochement et liste de toutes les écritures : %.0f ms\n",
                ouverture);
    std::printf("Lignes affichées dans le rapprochement : %d lignes\n", affichees);
    FermerBase();
    return 0;
}
