#include "treasury/Previsions.h"

#include "session/Session.h"
#include "store/Routines.h"
#include "treasury/DonneesTresor.h"
#include "ui/Grille.h"
#include "ui/Sablier.h"

#include "ui_Previsions.h"

#include <QCoreApplication>
#include <QShowEvent>

namespace ecran {

PrevisionsTiers::PrevisionsTiers(QWidget* parent, const QString& nom, const QString& titre,
                                 const QString& titreCadre, int menu, const QString& collectif)
    : ui::EcranModal(parent), ui(std::make_unique<Ui::Previsions>()), menu(menu),
      collectif(collectif) {
    FixerContexteAide(16);
    ui->setupUi(this);
    setObjectName(nom);
    setWindowTitle(titre);
    ui->Frame1->setTitle(titreCadre);
    ui->Tree1->FixerColonnes({QStringLiteral("Mois"), QStringLiteral("Montant")});
    ui->Tree1->FixerLargeurColonne(0, 150);
    ui->Tree1->FixerLargeurColonne(1, 150);
    ui->Tree1->FixerAlignementColonne(1, Qt::AlignRight | Qt::AlignVCenter);
    // Les mois restent dans l'ordre de l'exercice.
    ui->Tree1->FixerColonneTriable(0, false);
    ui->Tree1->FixerColonneTriable(1, false);
    connect(ui->Command3, &QPushButton::clicked, this, &PrevisionsTiers::Command3_Click);
    Form_Activate();
}

PrevisionsTiers::~PrevisionsTiers() = default;

void PrevisionsTiers::showEvent(QShowEvent* evenement) {
    ui::EcranModal::showEvent(evenement);
    if (!evenement->spontaneous()) Form_Activate();
}

void PrevisionsTiers::Form_Activate() {
    ui::Sablier sablier;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    ui->Tree1->Vider();
    const QString cle = CleCourante();
    const tresor::Previsions p = tresor::CalculerPrevisions(cle, menu);
    Montant totalPrev;
    // Les douze mois à partir de celui que donne le début de l'exercice.
    for (int i = 0; i < 12; ++i) {
        int mois = i + session().MoisDebutExercice;
        if (mois > 12) mois -= 12;
        if (mois < 1) mois += 12;
        const Montant m = p.mois[static_cast<std::size_t>(mois - 1)];
        ui->Tree1->AjouterLigne({NomMois(mois), AfficheMontant(m)});
        totalPrev += m;
    }
    ui->LCumSde->setText(AfficheMontant(p.cumSde));
    ui->LCumReg->setText(AfficheMontant(p.cumReg));
    ui->LTotFac->setText(AfficheMontant(p.mois[12]));
    ui->LSolCalc->setText(AfficheMontant(totalPrev + p.cumSde + p.cumReg + p.mois[12]));
    ui->LTotPrev->setText(AfficheMontant(totalPrev));
    table::Compte c;
    LireCompte(cle, collectif, c);
    ui->LSoldColl->setText(AfficheMontant(c.Solde));
}

void PrevisionsTiers::Command3_Click() {
    Retour();
}

Tresor03::Tresor03(QWidget* parent)
    : PrevisionsTiers(parent, QStringLiteral("Tresor03"),
                      QStringLiteral("Prévisions des encaissements dus par les clients"),
                      QStringLiteral("Prévisions des encaissements"), tresor::MenuClients,
                      QStringLiteral("410")) {}

Tresor04::Tresor04(QWidget* parent)
    : PrevisionsTiers(parent, QStringLiteral("Tresor04"),
                      QStringLiteral("Prévisions des règlements dus aux fournisseurs"),
                      QStringLiteral("Prévisions des règlements"), tresor::MenuFournisseurs,
                      QStringLiteral("400")) {}

} // namespace ecran
