#include "chart/Prembil.h"

#include "session/SaisieMontant.h"

#include "base/Texte.h"
#include "chart/DonneesPlan.h"
#include "chart/GestionPlan.h"
#include "chart/Ouverture.h"
#include "posting/Filtre.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/Personalisation.h"
#include "ui_Prembil.h"

#include <QLineEdit>

namespace ecran {

namespace {

Montant LireLabel(const QLabel* label) {
    return label->text().trimmed().isEmpty() ? Montant() : MontantDepuisTexte(label->text());
}

} // namespace

Prembil::Prembil(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Prembil>()) {
    FixerContexteAide(6);
    ui->setupUi(this);
    actif = {ui->Tree1,
             ui->Label3,
             &TotalActif,
             QStringLiteral("41"),
             QStringLiteral("410"),
             {100, 110, 150, 310, 360}};
    passif = {ui->Tree2, ui->Label4, &TotalPassif, QStringLiteral("40"), QStringLiteral("400"),
              {45, 55}};
    for (const Cote* cote : {&actif, &passif}) {
        ui::Grille* g = cote->grille;
        g->FixerColonnes(
            {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde Début")});
        g->FixerLargeurColonne(0, 80);
        g->FixerLargeurColonne(1, 250);
        g->FixerLargeurColonne(2, 125);
        g->FixerAlignementColonne(2, Qt::AlignRight | Qt::AlignVCenter);
        g->FixerTriMontants(2);
        g->FixerValidation([this, cote](int ligne, int, QString& texte) {
            return ValiderCellule(*cote, ligne, texte);
        });
        // La touche Entrée qui valide reste dans l'éditeur : la liste ne la voit jamais.
        connect(g, &ui::Grille::celluleValidee, this, [this] { EditionFaite = false; });
    }
    connect(ui->Tree1, &ui::Grille::ligneCliquee, this, &Prembil::Tree1_Click);
    connect(ui->Tree2, &ui::Grille::ligneCliquee, this, &Prembil::Tree2_Click);
    connect(ui->Tree1, &ui::Grille::touche, this, &Prembil::Tree1_KeyPress);
    connect(ui->Tree2, &ui::Grille::touche, this, &Prembil::Tree2_KeyPress);
    connect(ui->Command1, &QPushButton::clicked, this, &Prembil::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Prembil::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Prembil::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Prembil::Command4_Click);
    ui::RestaurerPersonalisations(this, {ui->Tree1, ui->Tree2});
    Form_Load();
}

Prembil::~Prembil() = default;

void Prembil::Form_Load() {
    const QString cle = CleCourante();
    table::Constante k;
    LireConstante(cle, k);
    OuvertureClose = k.OuvertureClos;
    if (OuvertureClose) {
        ui->Label7->hide();
        ui->Command1->setEnabled(false);
    }
    AssurerComptesFixes(cle);
    Remplir(actif, "E1", QStringLiteral("410"));
    Remplir(passif, "R1", QStringLiteral("400"));
}

void Prembil::Remplir(const Cote& cote, const char* erCpt, const QString& exclu) {
    ui::Grille* g = cote.grille;
    g->Vider();
    *cote.valeur = Montant();
    for (const plan::CompteListe& c : plan::ComptesDuCode(CleCourante(), erCpt)) {
        if (c.numero == exclu) continue;
        const Montant sde = c.solde;
        const int ligne = g->AjouterLigne({c.numero, c.libelle, AfficheMontant(sde)}, c.numero);
        g->FixerDonneeCellule(ligne, 2, QVariant::fromValue(sde.dixMilliemes()));
        *cote.valeur += sde;
    }
    g->Trier(0);
    MontrerTotal(cote);
}

void Prembil::MontrerTotal(const Cote& cote) {
    cote.total->setText(AfficheMontant(*cote.valeur));
    TestEquilibre();
}

void Prembil::TestEquilibre() {
    const Montant a = LireLabel(ui->Label3);
    const Montant p = LireLabel(ui->Label4);
    const bool possible = a == p && (!a.estNul() || !p.estNul()) && !OuvertureClose;
    ui->Label7->setVisible(possible);
    ui->Command1->setEnabled(possible);
    if (a.estNul() && p.estNul()) {
        // Sans montant d'ouverture, une société qui a déjà passé des écritures peut clore.
        table::Constante k;
        LireConstante(CleCourante(), k);
        if (k.LastNumEcrit > 0 && !OuvertureClose) {
            ui->Label7->show();
            ui->Command1->setEnabled(true);
        }
    }
}

void Prembil::OuvrirCellule(const Cote& cote) {
    if (OuvertureClose) return;
    const int ligne = cote.grille->LigneCourante();
    if (ligne < 0) return;
    AncienMontant = Montant::depuisDixMilliemes(cote.grille->DonneeCellule(ligne, 2).toLongLong());
    if (!cote.grille->EditerCellule(ligne, 2)) return;
    // Ce qu'on tape remplace le montant montré.
    if (auto* editeur = qobject_cast<QLineEdit*>(cote.grille->Editeur())) editeur->selectAll();
}

void Prembil::Tree1_Click() {
    OuvrirCellule(actif);
}

void Prembil::Tree2_Click() {
    OuvrirCellule(passif);
}

void Prembil::ToucheListe(const Cote& cote, int cle) {
    if (cle != Qt::Key_Return && cle != Qt::Key_Enter) return;
    // L'Entrée tapée dans la cellule remonte jusqu'à la liste avant sa validation : elle
    // appartient à la cellule.
    if (OuvertureClose || cote.grille->EditionOuverte()) return;
    if (EditionFaite) {
        EditionFaite = false;
        return;
    }
    OuvrirCellule(cote);
}

void Prembil::Tree1_KeyPress(int cle) {
    ToucheListe(actif, cle);
}

void Prembil::Tree2_KeyPress(int cle) {
    ToucheListe(passif, cle);
}

ui::Grille::Validation Prembil::ValiderCellule(const Cote& cote, int ligne, QString& texte) {
    if (texte.trimmed().isEmpty()) {
        ui::Boite(QStringLiteral("Entrez un montant SVP."));
        return ui::Grille::Validation::GarderOuvert;
    }
    texte.replace(QLatin1Char('.'), QLatin1Char(','));
    if (!MontantLisible(texte)) {
        ui::Boite(QStringLiteral("Votre saisie n'est pas correcte, recommencez"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        texte = AfficheMontant(Montant());
        return ui::Grille::Validation::Accepter;
    }
    const Montant montant = MontantDepuisTexte(texte);
    texte = AfficheMontant(montant);
    EditionFaite = true;
    const QString n = cote.grille->Texte(ligne, 0).left(8).trimmed();
    EnregistrerMontantOuverture(n, AncienMontant, montant,
                                n.left(2) == cote.prefixeTiers ? cote.collectif : QString());
    cote.grille->FixerDonneeCellule(ligne, 2, QVariant::fromValue(montant.dixMilliemes()));
    *cote.valeur = *cote.valeur - AncienMontant + montant;
    MontrerTotal(cote);
    const int m = LireMenuCompte(n);
    const bool inverse = cote.classesInverses.contains(m);
    if (montant > Montant() && inverse)
        ui::Boite(QStringLiteral("Ce compte est normalement négatif.\nEtes-vous sûr de votre "
                                 "signe ?"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
    else if (montant < Montant() && !inverse)
        ui::Boite(QStringLiteral("Ce compte est normalement positif.\nEtes-vous sûr de votre "
                                 "signe ?"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
    AncienMontant = montant;
    return ui::Grille::Validation::Accepter;
}

void Prembil::Command1_Click() {
    if (ui::Boite(QStringLiteral("Voulez-vous clore DEFINITIVEMENT votre bilan d'ouverture ?"),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) == ui::Reponse::Oui) {
        const QString cle = CleCourante();
        table::Constante k;
        if (LireConstante(cle, k)) {
            k.OuvertureClos = true;
            MajConstante(cle, k);
        }
        OuvertureClose = true;
        for (QWidget* w = parentWidget(); w; w = w->parentWidget()) {
            if (w->objectName() != QLatin1String("Plan2")) continue;
            if (auto* b = w->findChild<QPushButton*>(QStringLiteral("Command9")))
                b->setText(QStringLiteral("Consultation du Bilan d'Ouverture"));
        }
        ui->Label7->hide();
        ui->Command1->setEnabled(false);
        ui::Boite(QStringLiteral("Votre bilan d'ouverture est maintenant clos"),
                  QStringLiteral("Maroval"), ui::Icone::Information);
    }
    Retour();
}

void Prembil::Command2_Click() {
    MajTotauxOuverture(TotalActif, TotalPassif);
    Retour();
}

void Prembil::Command3_Click() {
    MontrerAide();
}

void Prembil::Command4_Click() {
    Retour();
}

void Prembil::SauverPersonalisations() {
    ui::SauverPersonalisations(this, {ui->Tree1, ui->Tree2});
}

void Prembil::done(int resultat) {
    if (!personalisationsSauvees) {
        personalisationsSauvees = true;
        SauverPersonalisations();
    }
    EcranModal::done(resultat);
}

} // namespace ecran
