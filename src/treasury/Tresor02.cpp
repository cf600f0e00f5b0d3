#include "treasury/Tresor02.h"

#include "base/Texte.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "treasury/DonneesTresor.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "ui/Sablier.h"

#include "ui_Tresor02.h"

namespace ecran {

namespace {

// AAAAMMJJ vers JJ/MM/AAAA ; vide pour une échéance absente.
QString Jour(const QString& date) {
    const QString d = date.trimmed();
    if (d.isEmpty() || d.startsWith(QLatin1Char('_'))) return QString();
    return DateVersEcran(d);
}

const QColor FondChoisi = QColor(Qt::darkRed);
const QColor TexteChoisi = QColor(Qt::white);
const QColor Lettre = QColor(Qt::blue);
const QColor LettreSoldeDebut = QColor(Qt::darkGreen);

} // namespace

Tresor02::Tresor02(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Tresor02>()) {
    FixerContexteAide(16);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Libellé"),
                              QStringLiteral("Solde début"), QStringLiteral("Total Débit"),
                              QStringLiteral("Total Crédit"), QStringLiteral("Solde Débit"),
                              QStringLiteral("Solde Crédit")});
    ui->Tree2->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Date Saisie"),
                              QStringLiteral("Echéance"), QStringLiteral("Libellé"),
                              QStringLiteral("Débit"), QStringLiteral("Crédit")});
    const int largeurs1[] = {85, 200, 105, 105, 105, 105, 105};
    for (int c = 0; c < 7; ++c) {
        ui->Tree1->FixerLargeurColonne(c, largeurs1[c]);
        if (c >= 2) {
            ui->Tree1->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
            ui->Tree1->FixerTriMontants(c);
        }
    }
    const int largeurs2[] = {70, 90, 90, 260, 110, 110};
    for (int c = 0; c < 6; ++c)
        ui->Tree2->FixerLargeurColonne(c, largeurs2[c]);
    for (int c : {4, 5})
        ui->Tree2->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
    // Le choix des lignes se voit à leur fond rouge, non à la sélection de la vue.
    ui->Tree2->setSelectionMode(QAbstractItemView::NoSelection);
    // L'ordre des lignes est celui des numéros : la liste ne se trie pas.
    for (int c = 0; c < 6; ++c)
        ui->Tree2->FixerColonneTriable(c, false);

    const auto option = [this](QRadioButton* b, auto action) {
        connect(b, &QRadioButton::toggled, this, [this, action](bool coche) {
            if (coche) action();
        });
    };
    option(ui->BRClients, [this] {
        MenuTiers = 170;
        setWindowTitle(QStringLiteral("Lettrage manuel des comptes clients"));
        MajTreeComptes();
    });
    option(ui->BRFournisseurs, [this] {
        MenuTiers = 160;
        setWindowTitle(QStringLiteral("Lettrage manuel des comptes fournisseurs"));
        MajTreeComptes();
    });
    option(ui->BRCptALettrer, [this] {
        TousComptes = 0;
        MajTreeComptes();
    });
    option(ui->BRTousCpt, [this] {
        TousComptes = 1;
        MajTreeComptes();
    });
    option(ui->BREcrALettrer, [this] {
        ToutesEcritures = 0;
        MajTreeEcritures();
    });
    option(ui->BRTtesEcr, [this] {
        ToutesEcritures = 1;
        MajTreeEcritures();
    });
    connect(ui->Tree1, &ui::Grille::ligneCouranteChangee, this, [this] { MajTreeEcritures(); });
    connect(ui->Tree1, &ui::Grille::ligneCliquee, this, [this] { MajTreeEcritures(); });
    connect(ui->Tree2, &ui::Grille::ligneCliquee, this, [this](int ligne) { Tree2_Click(ligne); });
    connect(ui->CLettrer, &QPushButton::clicked, this, &Tresor02::CLettrer_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &Tresor02::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Tresor02::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Tresor02::Command3_Click);
    connect(ui->CDelettrer, &QPushButton::clicked, this, &Tresor02::CDelettrer_Click);
    connect(ui->CTtDeletter, &QPushButton::clicked, this, &Tresor02::CTtDeletter_Click);
    Form_Load();
}

Tresor02::~Tresor02() = default;

void Tresor02::Form_Load() {
    MenuTiers = 170;
    TousComptes = 0;
    ToutesEcritures = 0;
    setWindowTitle(QStringLiteral("Lettrage manuel des comptes clients"));
    MajTreeComptes();
}

QString Tresor02::CompteChoisi() const {
    const int ligne = ui->Tree1->LigneChoisie();
    return ligne < 0 ? QString() : ui->Tree1->Texte(ligne, 0).trimmed();
}

int Tresor02::EtatLigne(int ligne) const {
    return ui->Tree2->DonneeCellule(ligne, 0).toInt();
}

void Tresor02::MajTreeComptes() {
    CumulFactures = CumulReglements = Montant();
    ui->LCumFact->clear();
    ui->LCumRegl->clear();
    ui->CLettrer->setEnabled(false);
    ui->Tree2->Vider();
    ui->Tree1->Vider();
    ui->Tree1->DebutRemplissage();
    for (const tresor::CompteTiers& c :
         tresor::Comptes(CleCourante(), MenuTiers, TousComptes == 0)) {
        if (c.sde.estNul() && c.cumD.estNul() && c.cumC.estNul()) continue;
        QString soldeDebit, soldeCredit;
        const bool actif = c.erCpt == QLatin1String("E1") || c.erCpt == QLatin1String("E2");
        const bool passif = c.erCpt == QLatin1String("R1") || c.erCpt == QLatin1String("R2");
        // Le solde, signé, dans la colonne de son sens.
        if ((actif && c.solde >= Montant()) || (passif && c.solde < Montant()))
            soldeDebit = AfficheMontant(c.solde);
        else if (actif || passif)
            soldeCredit = AfficheMontant(c.solde);
        ui->Tree1->AjouterLigne({c.numero, c.libelle.trimmed(), AfficheMontant(c.sde),
                                 c.cumD.estNul() ? QString() : AfficheMontant(c.cumD),
                                 c.cumC.estNul() ? QString() : AfficheMontant(c.cumC), soldeDebit,
                                 soldeCredit},
                                c.numero);
    }
    ui->Tree1->FinRemplissage();
}

void Tresor02::ColorerLigne(int ligne, int lettrage) {
    if (lettrage >= 1)
        ui->Tree2->FixerCouleurLigne(ligne, lettrage == 2 ? LettreSoldeDebut : Lettre);
}

void Tresor02::MajTreeEcritures() {
    const QString numero = CompteChoisi();
    if (numero.isEmpty()) return;
    ui->Tree2->Vider();
    CumulFactures = CumulReglements = Montant();
    ui->LCumFact->clear();
    ui->LCumRegl->clear();
    const QString cle = CleCourante();
    table::Compte compte;
    LireCompte(cle, numero, compte);
    SoldeDebutALettrer = tresor::SoldeDebutALettrer(cle, numero, compte.Sde);
    ui->LSde->setText(AfficheMontant(SoldeDebutALettrer));
    ui->LDIFF->setText(AfficheMontant(SoldeDebutALettrer + CumulFactures + CumulReglements));
    ui->Frame5->setVisible(!SoldeDebutALettrer.estNul());
    ui->Tree2->DebutRemplissage();
    for (const tresor::LigneTiers& l : tresor::Lignes(
             cle, numero, ToutesEcritures == 0 ? tresor::Choix::Ouvertes : tresor::Choix::Toutes)) {
        const QString montant = AfficheMontant(l.montant);
        const int ligne = ui->Tree2->AjouterLigne(
            {QString::number(static_cast<qint64>(l.numero)), Jour(l.dateEcr), Jour(l.dateEcheance),
             l.libelle.trimmed(), l.debit ? montant : QString(), l.debit ? QString() : montant},
            l.numero);
        ui->Tree2->FixerDonneeCellule(ligne, 0, l.lettrage >= 1 ? -1 : 0);
        ColorerLigne(ligne, l.lettrage);
    }
    ui->Tree2->FinRemplissage();
}

void Tresor02::AfficherCumuls() {
    ui->LCumFact->setText(AfficheMontant(CumulFactures));
    ui->LCumRegl->setText(AfficheMontant(CumulReglements));
    ui->LDIFF->setText(AfficheMontant(SoldeDebutALettrer + CumulFactures + CumulReglements));
}

void Tresor02::Tree2_Click(int ligne) {
    if (ligne < 0 || ligne >= ui->Tree2->NombreLignes()) return;
    const int etat = EtatLigne(ligne);
    if (etat == -1) return;
    const Montant m = tresor::MontantLigne(CleCourante(), ui->Tree2->DonneeLigne(ligne).toDouble());
    Montant& cumul = m <= Montant() ? CumulReglements : CumulFactures;
    if (etat == 1) {
        ui->Tree2->FixerDonneeCellule(ligne, 0, 0);
        ui->Tree2->FixerCouleurLigne(ligne, QColor(), QColor(Qt::white));
        cumul -= m;
    } else {
        ui->Tree2->FixerDonneeCellule(ligne, 0, 1);
        ui->Tree2->FixerCouleurLigne(ligne, TexteChoisi, FondChoisi);
        cumul += m;
    }
    AfficherCumuls();
    const Montant s = CumulFactures + CumulReglements;
    const Montant t = SoldeDebutALettrer + s;
    const bool equilibre = s.estNul() && !CumulFactures.estNul() && !CumulReglements.estNul();
    const bool soldeDebut = t.estNul() && !SoldeDebutALettrer.estNul();
    if (equilibre || soldeDebut) {
        // Le choix se tient : il ne reste qu'à le valider.
        ui->CLettrer->setEnabled(true);
        ui->Frame4->show();
        ui->Tree2->setEnabled(false);
        ui->CLettrer->setFocus();
    } else {
        ui->CLettrer->setEnabled(false);
    }
}

void Tresor02::Valider(int marque) {
    ui::Sablier sablier;
    std::vector<double> numeros;
    for (int ligne = 0; ligne < ui->Tree2->NombreLignes(); ++ligne)
        if (EtatLigne(ligne) == 1) numeros.push_back(ui->Tree2->DonneeLigne(ligne).toDouble());
    tresor::Marquer(CleCourante(), numeros, marque);
    MajTreeEcritures();
    ui->CLettrer->setEnabled(false);
    ui->Frame4->hide();
    ui->Tree2->setEnabled(true);
}

void Tresor02::CLettrer_Click() {
    const bool soldeDebut = (SoldeDebutALettrer + CumulFactures + CumulReglements).estNul() &&
                            !SoldeDebutALettrer.estNul();
    Valider(soldeDebut ? 2 : 1);
}

void Tresor02::Command1_Click() {
    const Montant reste = (SoldeDebutALettrer + CumulFactures + CumulReglements).abs();
    if (reste > SoldeDebutALettrer.abs()) {
        ui::Boite(QStringLiteral("Les écritures sélectionnées ne peuvent lettrer le Solde Début."));
        return;
    }
    Valider(2);
}

void Tresor02::Command2_Click() {
    const QString numero = CompteChoisi();
    if (numero.isEmpty()) return;
    table::Compte compte;
    LireCompte(CleCourante(), numero, compte);
    ui::Sablier sablier;
    tresor::LettrerUnCpt(numero, session().ExerciceCourant, compte.Sde);
    MajTreeEcritures();
}

void Tresor02::Command3_Click() {
    Retour();
}

void Tresor02::CDelettrer_Click() {
    const QString numero = CompteChoisi();
    if (numero.isEmpty()) return;
    if (ui::Boite(QStringLiteral("Ce bouton va supprimer le lettrage de toutes les écritures du "
                                 "compte sélectionné.\n\nVoulez-vous continuer ?"),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) == ui::Reponse::Non)
        return;
    ui::Sablier sablier;
    tresor::Delettrer(CleCourante(), {numero});
    MajTreeEcritures();
    ui->CLettrer->setEnabled(false);
}

void Tresor02::CTtDeletter_Click() {
    if (ui::Boite(QStringLiteral("Ce bouton va supprimer le lettrage de TOUTES les écritures de "
                                 "TOUS les comptes sélectionnés.\n\nVoulez-vous continuer ?"),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) == ui::Reponse::Non)
        return;
    ui::Sablier sablier;
    std::vector<QString> comptes;
    for (int ligne = 0; ligne < ui->Tree1->NombreLignes(); ++ligne)
        comptes.push_back(ui->Tree1->Texte(ligne, 0));
    tresor::Delettrer(CleCourante(), comptes);
    MajTreeEcritures();
    ui->CLettrer->setEnabled(false);
}

} // namespace ecran
