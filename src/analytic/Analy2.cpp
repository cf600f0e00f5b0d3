#include "analytic/Analy2.h"

#include "analytic/DonneesAnalytique.h"
#include "base/Texte.h"
#include "session/Session.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "ui/Sablier.h"

#include "ui_Analy2.h"

namespace ecran {

Analy2::Analy2(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Analy2>()) {
    FixerContexteAide(18);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Libellé de la section")});
    ui->Tree1->FixerLargeurColonne(0, 60);
    ui->Tree1->FixerMultiSelection(true);
    const QStringList colonnes = {
        QStringLiteral("Numéro"),          QStringLiteral("Libellé"),
        QStringLiteral("Total"),           QStringLiteral("Non Affecté"),
        QStringLiteral("Autres Sections"), QStringLiteral("Section(s) Choisie(s)")};
    for (ui::Grille* g : {ui->Tree2, ui->Tree3}) {
        g->FixerColonnes(colonnes);
        const int largeurs[] = {80, 200, 120, 120, 120, 140};
        for (int c = 0; c < 6; ++c) {
            g->FixerLargeurColonne(c, largeurs[c]);
            if (c >= 2) {
                g->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
                g->FixerTriMontants(c);
            }
        }
    }
    connect(ui->Command2, &QPushButton::clicked, this, &Analy2::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Analy2::Command3_Click);
    MajTree1();
}

Analy2::~Analy2() = default;

void Analy2::MajTree1() {
    ui->Tree1->Vider();
    const std::vector<analytique::Section> sections = analytique::Sections(CleCourante(), false);
    for (const analytique::Section& s : sections)
        ui->Tree1->AjouterLigne(
            {QStringLiteral("%1").arg(s.numero, 2, 10, QLatin1Char('0')), s.nom}, s.numero);
    if (sections.size() < 2)
        ui::Boite(analytique::TexteSectionsManquantes(), QStringLiteral("Maroval"),
                  ui::Icone::Information);
}

bool Analy2::SectionSelect(int numero) const {
    for (const int ligne : ui->Tree1->LignesSelectionnees())
        if (ui->Tree1->DonneeLigne(ligne).toInt() == numero) return true;
    return false;
}

void Analy2::Command2_Click() {
    if (ui->Tree1->LignesSelectionnees().isEmpty()) {
        ui::Boite(QStringLiteral("Sélectionnez d'abord une ou plusieurs sections !"));
        return;
    }
    ui::Sablier sablier;
    ui->Tree2->Vider();
    ui->Tree3->Vider();
    ui->Label3->clear();
    ui->Label4->clear();
    QSet<int> choisies;
    for (const int ligne : ui->Tree1->LignesSelectionnees())
        choisies.insert(ui->Tree1->DonneeLigne(ligne).toInt());
    analytique::Sommes totaux;
    for (const analytique::Sommes& s :
         analytique::Consulter(CleCourante(), ui->BRCharges->isChecked(), choisies)) {
        ui->Tree2->AjouterLigne({s.numero, s.libelle, AfficheMontant(s.total),
                                 AfficheMontant(s.nonAffecte), AfficheMontant(s.autres),
                                 AfficheMontant(s.choisies)},
                                s.numero);
        totaux.total += s.total;
        totaux.nonAffecte += s.nonAffecte;
        totaux.autres += s.autres;
        totaux.choisies += s.choisies;
    }
    ui->Tree3->AjouterLigne({QStringLiteral("Totaux :"), QString(), AfficheMontant(totaux.total),
                             AfficheMontant(totaux.nonAffecte), AfficheMontant(totaux.autres),
                             AfficheMontant(totaux.choisies)});
    const double part =
        totaux.total.estNul() ? 0 : totaux.choisies.enDouble() / totaux.total.enDouble();
    ui->Label3->setText(QStringLiteral("La(les) section(s) sélectionnée(s) totalisent ") +
                        AfficheMontant(totaux.choisies) + QStringLiteral(" soit ") +
                        FormatPourcent(part) + QStringLiteral(" du total (") +
                        AfficheMontant(totaux.total) + QStringLiteral(")."));
    if (!totaux.nonAffecte.estNul())
        ui->Label4->setText(QStringLiteral("Notez qu'un total de ") +
                            AfficheMontant(totaux.nonAffecte) +
                            QStringLiteral(" n'a pas encore été affecté."));
}

void Analy2::Command3_Click() {
    Retour();
}

} // namespace ecran
