// Mesure : ouverture de l'annulation sur une comptabilité générée de 100 000 lignes (le
// journal entier lu et montré, les plus récentes d'abord), avec la progression de Gauge1
// et le plus long moment où l'écran n'a pas répondu ; puis la recherche d'un groupe et
// une contre-passation complète.

#include "Generateur.h"
#include "entry/Annul.h"
#include "posting/Verification.h"
#include "store/Base.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    const int lignes = argc > 1 ? QByteArray(argv[1]).toInt() : 100000;
    QTemporaryDir dossier;
    generateur::Options options;
    options.dossier = dossier.path();
    options.lignesVisees = lignes;
    const generateur::Resultat genere = generateur::Generer(options);
    generateur::OuvrirGenere(dossier.path());
    std::printf("Base générée : %d lignes d'Ecriture en %.1f s\n", genere.lignes, genere.secondes);

    ecran::Annul annul;
    auto* t1 = annul.findChild<ui::Grille*>("Tree1");
    auto* jauge = annul.findChild<QProgressBar*>("Gauge1");
    int pas = 0;
    QObject::connect(jauge, &QProgressBar::valueChanged, [&](int) { ++pas; });

    // Une minuterie de 10 ms note le plus long intervalle entre deux tours de boucle.
    QElapsedTimer battement;
    qint64 plusLongBlocage = 0;
    QTimer pouls;
    pouls.setInterval(10);
    QObject::connect(&pouls, &QTimer::timeout,
                     [&] { plusLongBlocage = qMax(plusLongBlocage, battement.restart()); });

    QElapsedTimer chrono;
    chrono.start();
    battement.start();
    pouls.start();
    annul.show();
    while (t1->NombreLignes() == 0 || jauge->isVisible())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    const qint64 ouverture = chrono.elapsed();
    pouls.stop();
    std::printf("Ouverture d'Annul : %lld ms pour %d lignes montrées (séparateurs compris)\n",
                static_cast<long long>(ouverture), t1->NombreLignes());
    std::printf("Gauge1 : %d avancées ; plus long moment sans réponse : %lld ms\n", pas,
                static_cast<long long>(plusLongBlocage));

    // Un groupe au milieu du journal.
    const int milieu =
        t1->NombreLignes() / 2 + (t1->DonneeLigne(t1->NombreLignes() / 2).toInt() < 0);
    chrono.restart();
    annul.Tree1_Click(t1->topLevelItem(milieu));
    std::printf("Groupe trouvé (%d à %d) en %lld ms\n", annul.NumDebutGroupe, annul.NumFinGroupe,
                static_cast<long long>(chrono.elapsed()));
    chrono.restart();
    annul.findChild<QPushButton*>("Command3")->click();
    annul.findChild<QPushButton*>("Command2")->click();
    std::printf("Contre-passation passée et journal remontré en %lld ms\n",
                static_cast<long long>(chrono.elapsed()));
    std::printf("Vérification des livres : %s\n", Verification() ? "juste" : "FAUSSE");
    FermerBase();
    return 0;
}
