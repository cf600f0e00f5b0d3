#include "budget/ControleDetaille.h"

#include "budget/DonneesBudget.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Grille.h"

#include "ui_ControleDetaille.h"

namespace ecran {

namespace {

QStringList TitresChiffres() {
    const QString an = QString::number(session().ExerciceCourant);
    return {QStringLiteral("Réalisé ") + QString::number(session().ExerciceCourant - 1),
            QStringLiteral("Réalisé ") + an, QStringLiteral("Prévisions ") + an,
            QStringLiteral("Réalisé - Prévision")};
}

} // namespace

budget03::budget03(QWidget* parent)
    : ui::EcranModal(parent), ui(std::make_unique<Ui::ControleDetaille>()) {
    FixerContexteAide(17);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes(
        QStringList{QStringLiteral("Classe"), QStringLiteral("Numéro"), QStringLiteral("Libellé")} +
        TitresChiffres());
    ui->Tree2->FixerColonnes(QStringList{QStringLiteral("Mois")} + TitresChiffres());
    ui->Tree3->FixerColonnes(QStringList{QStringLiteral("Cumuls")} + TitresChiffres());
    const int largeurs1[] = {80, 90, 250, 130, 130, 130, 140};
    for (int c = 0; c < 7; ++c) {
        ui->Tree1->FixerLargeurColonne(c, largeurs1[c]);
        if (c >= 3) {
            ui->Tree1->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
            ui->Tree1->FixerTriMontants(c);
        }
    }
    for (ui::Grille* g : {ui->Tree2, ui->Tree3})
        for (int c = 0; c < 5; ++c) {
            g->FixerLargeurColonne(c, c == 0 ? 420 : 130);
            g->FixerColonneTriable(c, false);
            if (c >= 1) g->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
        }
    if (budget::PremierMois(session().DateSaisieCourante, session().MoisDebutExercice))
        ui->Option2->setEnabled(false);
    for (const auto& [bouton, mode] : {std::pair{ui->Option1, 1}, std::pair{ui->Option2, 2}})
        connect(bouton, &QRadioButton::toggled, this, [this, mode = mode](bool coche) {
            if (!coche) return;
            ModeCumul = mode;
            Tree1_Click();
        });
    connect(ui->Tree1, &ui::Grille::ligneCliquee, this, [this] { Tree1_Click(); });
    connect(ui->Tree1, &ui::Grille::ligneCouranteChangee, this, [this] { Tree1_Click(); });
    connect(ui->Command3, &QPushButton::clicked, this, &budget03::Command3_Click);
    MajTree1();
}

budget03::~budget03() = default;

void budget03::MajTree1() {
    ui->Tree1->Vider();
    for (const table::Budget& b : budget::Lignes(CleCourante())) {
        const bool charge = b.ERBUD.trimmed() == QLatin1String("E2");
        const int ligne = ui->Tree1->AjouterLigne(
            {charge ? QStringLiteral("Charges") : QStringLiteral("Produits"), b.NumBud.trimmed(),
             b.LibBud.trimmed(), AfficheMontant(b.ReelA), AfficheMontant(b.Reel),
             AfficheMontant(b.Budget), AfficheMontant(b.Reel - b.Budget)},
            b.NumBud.trimmed());
        const QColor couleur = charge ? QColor(160, 40, 40) : QColor(20, 110, 40);
        ui->Tree1->FixerCouleurCellule(ligne, 0, couleur);
        ui->Tree1->FixerCouleurCellule(ligne, 1, couleur);
    }
}

void budget03::Tree1_Click() {
    const int ligne = ui->Tree1->LigneChoisie();
    if (ligne < 0) return;
    table::Budget b;
    if (!LireBudget(CleCourante(), ui->Tree1->DonneeLigne(ligne).toString(), b)) return;
    ui->Label6->setText(b.NumBud.trimmed() + QLatin1Char(' ') + b.LibBud.trimmed());
    ui->Tree2->Vider();
    for (const int m : budget::MoisDeLExercice(session().MoisDebutExercice)) {
        const auto i = static_cast<std::size_t>(m);
        ui->Tree2->AjouterLigne({NomMois(m), AfficheMontant(b.ReelAM[i]),
                                 AfficheMontant(b.ReelM[i]), AfficheMontant(b.BudgetM[i]),
                                 AfficheMontant(b.ReelM[i] - b.BudgetM[i])},
                                m);
    }
    const budget::Cumuls c = budget::Cumuler(
        b, session().MoisDebutExercice, budget::MoisArret(session().DateSaisieCourante, ModeCumul));
    QString titre, arret;
    budget::TextesArret(session().DateSaisieCourante, ModeCumul, titre, arret);
    ui->Label1->setText(titre);
    ui->Label2->setText(arret);
    ui->Tree3->Vider();
    ui->Tree3->AjouterLigne({titre + QLatin1Char(' ') + arret, AfficheMontant(c.reelAnterieur),
                             AfficheMontant(c.reel), AfficheMontant(c.prevision),
                             AfficheMontant(c.ecart)});
}

void budget03::Command3_Click() {
    Retour();
}

} // namespace ecran
