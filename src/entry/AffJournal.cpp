#include "entry/AffJournal.h"

#include "base/Montant.h"
#include "consultation/ColonnesJournal.h"
#include "consultation/DonneesJournal.h"
#include "session/Session.h"
#include "ui/Boite.h"
#include "ui/Grille.h"

#include <QApplication>
#include <QHeaderView>
#include <QList>
#include <QProgressBar>
#include <QShowEvent>

namespace {

// Colonne cachée qui garde la lettre du journal.
constexpr int ColonneJournal = 7;
// Lignes ajoutées d'un coup entre deux rafraîchissements de la jauge.
constexpr int TailleLot = 2000;

void AjouterEcriture(ui::Grille* grille, const journal::Ligne& l) {
    grille->AjouterLigne(journal::Textes(l, FormaterMontant(l.montant, session().FormatMontant)),
                         static_cast<std::int32_t>(l.numero));
}

} // namespace

void PreparerListesJournal(ui::Grille* tree1, ui::Grille* tree2) {
    const QList<int> largeurs{60, 80, 80, 220, 80, 100, 100};
    for (ui::Grille* g : {tree1, tree2}) {
        PreparerColonnesJournal(g);
        for (int c = 0; c < largeurs.size(); ++c)
            g->FixerLargeurColonne(c, largeurs[c]);
        g->setColumnHidden(ColonneJournal, true);
        g->setUniformRowHeights(true);
        g->setRootIsDecorated(false);
    }
}

void AffJournal(QWidget* ecran, ui::Grille* tree1, ui::Grille* tree2, QProgressBar* gauge1,
                const QString& code) {
    tree1->Vider();
    tree2->Vider();
    ecran->setCursor(Qt::WaitCursor);
    const int total = journal::NombreLignes(code);
    gauge1->setRange(0, qMax(total, 1));
    gauge1->setValue(0);
    gauge1->setVisible(true);
    // La liste reste fermée aux clics tant qu'elle se remplit ; le reste de l'écran répond.
    tree1->setEnabled(false);

    int lues = 0;
    const QStringList vide(journal::Titres().size(), QString());
    tree1->DebutRemplissage();
    journal::LireLignes(code, true, [&](const journal::Ligne& l) {
        // Du plus récent au plus ancien : une écriture commence par sa ligne de fin.
        if (l.fin && lues > 0) tree1->AjouterLigne(vide, LigneSeparatrice);
        AjouterEcriture(tree1, l);
        if (++lues % TailleLot == 0) {
            // Les lignes lues se montrent par lots pendant que la jauge avance.
            tree1->FinRemplissage();
            gauge1->setValue(lues);
            QApplication::processEvents();
            tree1->DebutRemplissage();
        }
    });
    tree1->FinRemplissage();
    tree1->setEnabled(true);
    gauge1->setValue(lues);
    gauge1->setVisible(false);
    ecran->unsetCursor();
}

bool FinEcr(std::int32_t numero) {
    // Le début du journal arrête la recherche comme une fin de groupe.
    return numero == 0 || journal::MarqueFin(numero);
}

bool TrouverGroupe(std::int32_t p, std::int32_t& debut, std::int32_t& fin) {
    if (p == LigneSeparatrice) {
        ui::Boite(QStringLiteral("Veuillez sélectionner une ligne contenant une écriture"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return false;
    }
    // Ligne de fin : le groupe commence après la fin précédente.
    if (FinEcr(p)) --p;
    while (p > 0 && !FinEcr(p))
        --p;
    debut = p + 1;
    fin = debut;
    while (!FinEcr(fin))
        ++fin;
    return true;
}

void AffGroupe(ui::Grille* tree2, std::int32_t debut, std::int32_t fin) {
    tree2->Vider();
    journal::LireLignesDe(debut, fin, [&](const journal::Ligne& l) { AjouterEcriture(tree2, l); });
}

namespace ecran {

EcranJournal::EcranJournal(QWidget* parent) : ui::EcranModal(parent) {
    FixerContexteAide(22);
}

void EcranJournal::Brancher(ui::Grille* journal, ui::Grille* groupe, QProgressBar* jauge) {
    tree1 = journal;
    tree2 = groupe;
    gauge1 = jauge;
    PreparerListesJournal(tree1, tree2);
    gauge1->hide();
}

void EcranJournal::showEvent(QShowEvent* evenement) {
    ui::EcranModal::showEvent(evenement);
    if (activee || evenement->spontaneous()) return;
    activee = true;
    // Après l'affichage : la jauge se voit pendant la lecture du journal.
    QMetaObject::invokeMethod(this, &EcranJournal::Form_Activate, Qt::QueuedConnection);
}

void EcranJournal::AffJournal(const QString& journal) {
    ::AffJournal(this, tree1, tree2, gauge1, journal);
}

bool EcranJournal::FinEcr(std::int32_t numero) {
    return ::FinEcr(numero);
}

bool EcranJournal::ChoisirGroupe(int ligne) {
    if (ligne < 0 ||
        !TrouverGroupe(tree1->DonneeLigne(ligne).toInt(), NumDebutGroupe, NumFinGroupe))
        return false;
    AffGroupe(tree2, NumDebutGroupe, NumFinGroupe);
    return true;
}

} // namespace ecran
