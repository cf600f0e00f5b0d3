#include "budget/Budget04.h"

#include "budget/DonneesBudget.h"
#include "session/Session.h"
#include "ui/Grille.h"

#include "ui_Budget04.h"

namespace ecran {

Budget04::Budget04(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Budget04>()) {
    FixerContexteAide(17);
    ui->setupUi(this);
    const QString an = QString::number(session().ExerciceCourant);
    const QStringList chiffres = {
        QStringLiteral("Réalisé ") + QString::number(session().ExerciceCourant - 1),
        QStringLiteral("Réalisé ") + an, QStringLiteral("Prévisions ") + an,
        QStringLiteral("Réalisé - Prévision")};
    for (ui::Grille* g : {ui->Tree1, ui->Tree1B, ui->Tree2, ui->Tree2B}) {
        g->FixerColonnes(QStringList{QStringLiteral("Numéro"), QStringLiteral("Libellé")} +
                         chiffres);
        const int largeurs[] = {90, 300, 140, 140, 140, 150};
        for (int c = 0; c < 6; ++c) {
            g->FixerLargeurColonne(c, largeurs[c]);
            if (c >= 2) {
                g->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
                g->FixerTriMontants(c);
            }
        }
    }
    if (budget::PremierMois(session().DateSaisieCourante, session().MoisDebutExercice))
        ui->Option2->setEnabled(false);
    for (const auto& [bouton, mode] : {std::pair{ui->Option1, 1}, std::pair{ui->Option2, 2}})
        connect(bouton, &QRadioButton::toggled, this, [this, mode = mode](bool coche) {
            if (!coche) return;
            ModeCumul = mode;
            MajBudGlob();
        });
    connect(ui->RCharges, &QRadioButton::toggled, this, [this](bool coche) {
        if (coche) MontrerClasse(true);
    });
    connect(ui->RProduits, &QRadioButton::toggled, this, [this](bool coche) {
        if (coche) MontrerClasse(false);
    });
    connect(ui->Command3, &QPushButton::clicked, this, &Budget04::Command3_Click);

    MajBudGlob();
    const QString cle = CleCourante();
    const Montant produits = budget::SommePrevisions(cle, QStringLiteral("R2"));
    const Montant charges = budget::SommePrevisions(cle, QStringLiteral("E2"));
    ui->LProduits->setText(AfficheMontant(produits));
    ui->LCharges->setText(AfficheMontant(charges));
    ui->LResultat->setText(AfficheMontant(produits - charges));
    MontrerClasse(ui->RCharges->isChecked());
}

Budget04::~Budget04() = default;

void Budget04::MontrerClasse(bool charges) {
    ui->Label3->setText(charges ? QStringLiteral("Consultation des Charges")
                                : QStringLiteral("Consultation des Produits"));
    ui->Tree1->setVisible(charges);
    ui->Tree2->setVisible(charges);
    ui->Tree1B->setVisible(!charges);
    ui->Tree2B->setVisible(!charges);
}

void Budget04::MajBudGlob() {
    const int arret = budget::MoisArret(session().DateSaisieCourante, ModeCumul);
    budget::Cumuls totaux[2];
    for (ui::Grille* g : {ui->Tree1, ui->Tree1B, ui->Tree2, ui->Tree2B})
        g->Vider();
    for (const table::Budget& b : budget::Lignes(CleCourante())) {
        const int classe = b.ERBUD.trimmed() == QLatin1String("E2") ? 0 : 1;
        const budget::Cumuls c = budget::Cumuler(b, session().MoisDebutExercice, arret);
        (classe == 0 ? ui->Tree1 : ui->Tree1B)
            ->AjouterLigne({b.NumBud.trimmed(), b.LibBud.trimmed(), AfficheMontant(c.reelAnterieur),
                            AfficheMontant(c.reel), AfficheMontant(c.prevision),
                            AfficheMontant(c.ecart)},
                           b.NumBud.trimmed());
        totaux[classe].reelAnterieur += c.reelAnterieur;
        totaux[classe].reel += c.reel;
        totaux[classe].prevision += c.prevision;
        totaux[classe].ecart += c.ecart;
    }
    const QString libelles[2] = {QStringLiteral("Total des Charges"),
                                 QStringLiteral("Total des Produits")};
    ui::Grille* lignesTotal[2] = {ui->Tree2, ui->Tree2B};
    for (int i = 0; i < 2; ++i)
        lignesTotal[i]->AjouterLigne(
            {QString(), libelles[i], AfficheMontant(totaux[i].reelAnterieur),
             AfficheMontant(totaux[i].reel), AfficheMontant(totaux[i].prevision),
             AfficheMontant(totaux[i].ecart)});
    QString titre, texteArret;
    budget::TextesArret(session().DateSaisieCourante, ModeCumul, titre, texteArret);
    ui->Label1->setText(titre);
    ui->Label2->setText(texteArret);
}

void Budget04::Command3_Click() {
    Retour();
}

} // namespace ecran
