// Fin d'exercice sur une comptabilité générée de 5 000 comptes et 100 000 lignes : le plan
// de l'exercice suivant puis le transfert des soldes, leur nombre de synchronisations
// durables (le même quel que soit le nombre de comptes), face à un SELECT simple des mêmes
// lignes de Compte.
#include "support/DisqueFautif.h"

#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Application.h"
#include "yearend/DonneesCloture.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <SQLiteCpp/Statement.h>
#include <cstdio>

#include "Generateur.h"

namespace {

struct Mesure {
    qint64 plan = 0, transfert = 0;
    int synchros = 0, comptes = 0;
};

Mesure Cloturer(const QString& dossier, int clients, int fournisseurs, int lignes) {
    generateur::Options options;
    options.dossier = dossier;
    options.lignesVisees = lignes;
    options.clients = clients;
    options.fournisseurs = fournisseurs;
    generateur::Generer(options);
    generateur::OuvrirGenere(dossier);
    const QString cle = CleCourante();
    const QString suivante = cloture::CleSuivante();
    table::Constante k;
    LireConstante(cle, k);
    Mesure m;
    {
        SQLite::Statement n(Base(), "SELECT count(*) FROM Compte WHERE CleCpt=?");
        n.bind(1, cle.toStdString());
        n.executeStep();
        m.comptes = n.getColumn(0).getInt();
    }
    support::RemettreDisqueAZero();
    QElapsedTimer chrono;
    chrono.start();
    cloture::CreerPlanSuivant(cle, suivante, k);
    m.plan = chrono.elapsed();
    chrono.restart();
    cloture::TransfererSoldes(cle, suivante, {});
    m.transfert = chrono.elapsed();
    m.synchros = support::NombreAcces(support::Acces::Synchro);
    return m;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ui::Application application(argc, argv);
    // Le VFS qui compte les accès, sans panne armée : il ne fait que passer la main.
    support::InstallerDisqueFautif();
    QTemporaryDir dossier;

    const Mesure petite = Cloturer(dossier.filePath("petite"), 40, 15, 10000);
    std::printf("Synchronisations durables du plan et du transfert (%d comptes) : %d\n",
                petite.comptes, petite.synchros);

    const Mesure grande = Cloturer(dossier.filePath("grande"), 3500, 1450, 100000);
    std::printf("Comptes de l'exercice clos : %d\n", grande.comptes);
    std::printf("Plan de l'exercice suivant : %lld ms\n", static_cast<long long>(grande.plan));
    std::printf("Transfert des soldes : %lld ms\n", static_cast<long long>(grande.transfert));
    std::printf("Plan et transfert : %lld ms\n",
                static_cast<long long>(grande.plan + grande.transfert));
    std::printf("Synchronisations durables du plan et du transfert (%d comptes) : %d\n",
                grande.comptes, grande.synchros);

    {
        QElapsedTimer chrono;
        chrono.start();
        SQLite::Statement q(Base(), "SELECT NumCpt, Sde, CumD, CumC, Solde FROM Compte WHERE "
                                    "CleCpt=?");
        q.bind(1, CleCourante().toStdString());
        long long n = 0;
        while (q.executeStep())
            n += q.getColumn(4).getInt64() != 0;
        std::printf("SELECT simple des mêmes lignes de Compte : %.2f ms (%lld soldes non nuls)\n",
                    static_cast<double>(chrono.nsecsElapsed()) / 1e6, n);
    }
    FermerBase();
    return 0;
}
