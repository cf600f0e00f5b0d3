#include "treasury/Tresor05.h"

#include "base/Texte.h"
#include "session/Session.h"
#include "treasury/DonneesTresor.h"
#include "ui/Grille.h"
#include "ui/Sablier.h"

#include "ui_Tresor05.h"

#include <QShowEvent>

namespace ecran {

Tresor05::Tresor05(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Tresor05>()) {
    FixerContexteAide(16);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Nom"),
                              QStringLiteral("Ecriture"), QStringLiteral("Libellé"),
                              QStringLiteral("Echéance"), QStringLiteral("Montant")});
    const int largeurs[] = {90, 200, 80, 300, 100, 130};
    for (int c = 0; c < 6; ++c)
        ui->Tree1->FixerLargeurColonne(c, largeurs[c]);
    ui->Tree1->FixerAlignementColonne(5, Qt::AlignRight | Qt::AlignVCenter);
    ui->Tree1->FixerTriMontants(5);
    ui->Tree1->FixerTriDates(4);
    const auto option = [this](QRadioButton* b, auto action) {
        connect(b, &QRadioButton::toggled, this, [action](bool coche) {
            if (coche) action();
        });
    };
    option(ui->BRClients, [this] { ChoisirClasse(tresor::MenuClients); });
    option(ui->BRFournisseurs, [this] { ChoisirClasse(tresor::MenuFournisseurs); });
    option(ui->BRTtesFact, [this] {
        FiltreEcheance = 0;
        MajTreeFactures();
    });
    option(ui->BRFactSansEch, [this] {
        FiltreEcheance = 1;
        MajTreeFactures();
    });
    option(ui->BRFactAvecEch, [this] {
        FiltreEcheance = 2;
        MajTreeFactures();
    });
    connect(ui->Command3, &QPushButton::clicked, this, &Tresor05::Command3_Click);
    Form_Activate();
}

Tresor05::~Tresor05() = default;

void Tresor05::showEvent(QShowEvent* evenement) {
    ui::EcranModal::showEvent(evenement);
    if (!evenement->spontaneous()) Form_Activate();
}

void Tresor05::Form_Activate() {
    const QString cle = CleCourante();
    SdeNLettreClients = tresor::CalcSdeNLettre(cle, tresor::MenuClients);
    SdeNLettreFourn = tresor::CalcSdeNLettre(cle, tresor::MenuFournisseurs);
    // Les options reviennent aux clients et à toutes les factures, sans relancer deux fois.
    for (QRadioButton* b : {ui->BRClients, ui->BRTtesFact}) {
        const QSignalBlocker bloque(b);
        b->setChecked(true);
    }
    ChoisirClasse(tresor::MenuClients);
}

void Tresor05::ChoisirClasse(int menu) {
    MenuTiers = menu;
    FiltreEcheance = 0;
    {
        const QSignalBlocker bloque(ui->BRTtesFact);
        ui->BRTtesFact->setChecked(true);
    }
    MajTreeFactures();
    const Montant reste = menu == tresor::MenuClients ? SdeNLettreClients : SdeNLettreFourn;
    ui->LCumSde->setText(AfficheMontant(reste));
    ui->LibelSde->setVisible(!reste.estNul());
    ui->LCumSde->setVisible(!reste.estNul());
}

void Tresor05::MajTreeFactures() {
    ui::Sablier sablier;
    TotalFactures = TotalReglements = Montant();
    ui->LTotFac->clear();
    ui->LTotReg->clear();
    ui->Tree1->Vider();
    ui->Tree1->DebutRemplissage();
    for (const tresor::LigneOuverte& l :
         tresor::LignesOuvertes(CleCourante(), MenuTiers, FiltreEcheance)) {
        if (l.montant > Montant()) {
            const QString date = l.dateEcheance.trimmed();
            ui->Tree1->AjouterLigne(
                {l.numCpt, l.libCpt.trimmed(), QString::number(static_cast<qint64>(l.numEcr)),
                 l.libEcr.trimmed(),
                 date.isEmpty() || date.startsWith(QLatin1Char('_')) ? QString()
                                                                     : DateVersEcran(date),
                 AfficheMontant(l.montant)},
                l.numEcr);
            TotalFactures += l.montant;
        } else {
            TotalReglements += l.montant;
        }
    }
    ui->Tree1->FinRemplissage();
    if (FiltreEcheance == 0) {
        ui->LTotFac->setText(AfficheMontant(TotalFactures));
        if (!TotalReglements.estNul())
            ui->LTotReg->setText(QStringLiteral("ATTENTION ! Du total il faut soustraire le "
                                                "cumul des réglements qui n'ont pas encore été "
                                                "lettrés soit : ") +
                                 AfficheMontant(TotalReglements));
    }
}

void Tresor05::Command3_Click() {
    Retour();
}

} // namespace ecran
