// Mesure : ouverture de l'annulation sur une comptabilité générée de 100 000 lignes (le
// journal entier lu et montré, les plus récentes d'abord), avec la progression de Gauge1
// et le plus long moment où l'écran n'a pas répondu ; puis la recherche d'un groupe et
// une contre-passation complète.

#include "Generateur.h"
#include "entry/Annul.h"
#include "entry/SaisDC2.h"
#include "posting/Verification.h"
#include "session/Session.h"
#include "store/Base.h"
#include "ui/Application.h"
#include "ui/ChampDate.h"
#include "ui/Grille.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

namespace {

// Tape un montant dans une cellule de Tree2 comme l'éditeur le ferait, puis valide.
void Taper(ui::Grille* t2, int ligne, int colonne, const QString& texte) {
    t2->EditerCellule(ligne, colonne);
    if (auto* editeur = qobject_cast<QLineEdit*>(t2->Editeur())) {
        editeur->setText(texte);
        t2->ValiderEdition();
    }
}

// Captures de l'annulation (groupe contre-passé, avant confirmation) et de la saisie en
// débits et crédits (facture tapée, échéance), pour les regarder.
void Captures(const QString& dossier) {
    ecran::Annul annul;
    annul.resize(1000, 640);
    annul.show();
    auto* t1 = annul.findChild<ui::Grille*>("Tree1");
    while (t1->NombreLignes() == 0)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    annul.Tree1_Click(1);
    annul.findChild<QPushButton*>("Command3")->click();
    QCoreApplication::processEvents();
    annul.grab().save(dossier + QStringLiteral("/Annul.png"));
    annul.findChild<QPushButton*>("Command1")->click();

    session().JournalSaisie = QStringLiteral("V");
    Base().exec("DELETE FROM wSaisie");
    ecran::SaisDC2 dc;
    dc.show();
    auto* g1 = dc.findChild<ui::Grille*>("Tree1");
    auto* g2 = dc.findChild<ui::Grille*>("Tree2");
    for (int l = 0; l < 3 && l < g1->NombreLignes(); ++l) {
        g1->FixerLigneCourante(l);
        dc.BAjout_Click();
    }
    dc.findChild<QLineEdit*>("Text2")->setText(QStringLiteral("Facture n° 1042 d'avril"));
    ui::FixerTexteDate(dc.findChild<QLineEdit*>("Text3"), QStringLiteral("15/05/2024"));
    Taper(g2, 0, 2, QStringLiteral("1200"));
    Taper(g2, 1, 3, QStringLiteral("200"));
    Taper(g2, 2, 3, QStringLiteral("1000"));
    QCoreApplication::processEvents();
    dc.grab().save(dossier + QStringLiteral("/SaisDC2.png"));
    Base().exec("DELETE FROM wSaisie");
}

} // namespace

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    const int rangCaptures = QCoreApplication::arguments().indexOf(QStringLiteral("--captures"));
    const int lignes = rangCaptures > 0 ? 2000 : argc > 1 ? QByteArray(argv[1]).toInt() : 100000;
    QTemporaryDir dossier;
    generateur::Options options;
    options.dossier = dossier.path();
    options.lignesVisees = lignes;
    const generateur::Resultat genere = generateur::Generer(options);
    generateur::OuvrirGenere(dossier.path());
    std::printf("Base générée : %d lignes d'Ecriture en %.1f s\n", genere.lignes, genere.secondes);
    if (rangCaptures > 0) {
        Captures(QCoreApplication::arguments().value(rangCaptures + 1, QStringLiteral("/tmp")));
        FermerBase();
        return 0;
    }

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
    annul.Tree1_Click(milieu);
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
