#include "consultation/Balance.h"

#include "consultation/DetailCp.h"
#include "consultation/DonneesComptes.h"
#include "consultation/Export.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/BoiteAide.h"
#include "ui/Personalisation.h"
#include "ui_Balance.h"

#include <QHeaderView>
#include <optional>

namespace ecran {

namespace {

const QString texteAide = QStringLiteral(
    "Double-cliquez sur un compte pour le consulter.|Vous pouvez changer la taille de cet "
    "écran.|Cliquez sur le titre d'une colonne pour ranger la balance selon cette colonne.");

QStringList TitresBalance() {
    return {QStringLiteral("Numéro"),       QStringLiteral("Libellé"),
            QStringLiteral("Solde début"),  QStringLiteral("Total Débit"),
            QStringLiteral("Total Crédit"), QStringLiteral("Solde Débit"),
            QStringLiteral("Solde Crédit")};
}

// Colonne du solde : 5 (débit) ou 6 (crédit), selon le côté naturel du compte et le signe.
int ColonneSolde(const QString& erCpt, Montant solde) {
    return comptes::SoldeDebiteur(erCpt, solde) ? 5 : 6;
}

// Les montants à droite.
void AlignerMontants(ui::Grille* grille) {
    for (int c = 2; c < 7; ++c) {
        grille->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
        grille->FixerTriMontants(c);
    }
}

} // namespace

Balance::Balance(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Balance>()) {
    FixerContexteAide(14);
    ui->setupUi(this);
    for (QPushButton* b : findChildren<QPushButton*>())
        b->setAutoDefault(false);
    auto* aide = new ui::BoiteAide(ui->CadreAide);
    aide->setObjectName(QStringLiteral("BoiteAide1"));
    ui->CadreAide->layout()->addWidget(aide);
    ui->Tree1->FixerColonnes(TitresBalance());
    ui->Tree2->FixerColonnes(TitresBalance());
    ui->Tree2->header()->hide();
    ui->Tree2->setSortingEnabled(false);
    const int largeurs[] = {80, 230, 110, 110, 110, 110, 110};
    for (int c = 0; c < 7; ++c) {
        ui->Tree1->FixerLargeurColonne(c, largeurs[c]);
        ui->Tree2->FixerLargeurColonne(c, largeurs[c]);
    }
    ui->Command3->setEnabled(false);
    connect(ui->BRCompl, &QRadioButton::clicked, this, &Balance::BRCompl_Click);
    connect(ui->BRClient, &QRadioButton::clicked, this, &Balance::BRClient_Click);
    connect(ui->BRFourn, &QRadioButton::clicked, this, &Balance::BRFourn_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &Balance::Command1_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Balance::Command3_Click);
    connect(ui->Tree1, &ui::Grille::ligneDoubleCliquee, this, &Balance::Tree1_DblClick);
    connect(ui->Tree1->header(), &QHeaderView::sectionResized, this, &Balance::Tree1_ColumnResize);
    Form_Load();
}

Balance::~Balance() = default;

void Balance::Form_Load() {
    ui::RestaurerPersonalisations(this, {ui->Tree1});
    for (int c = 0; c < 7; ++c)
        ui->Tree2->FixerLargeurColonne(c, ui->Tree1->LargeurColonne(c));
    if (auto* aide = findChild<ui::BoiteAide*>(QStringLiteral("BoiteAide1")))
        aide->FixerMessageAide(texteAide);
    Montant debits, credits, soldesDebit, soldesCredit;
    QString collectif, nom;
    comptes::Portee portee = comptes::Portee::Generale;
    if (ui->BRCompl->isChecked()) {
        nom = QStringLiteral("Balance Générale");
    } else if (ui->BRClient->isChecked()) {
        portee = comptes::Portee::Clients;
        collectif = QStringLiteral("410");
    } else if (ui->BRFourn->isChecked()) {
        portee = comptes::Portee::Fournisseurs;
        collectif = QStringLiteral("400");
    } else {
        return; // l'écran attend le choix d'une balance
    }
    ui->Command3->setEnabled(true);
    ui->Label1->clear();
    std::optional<FichierCsv> fichier;
    if (ExportEnCours) {
        fichier.emplace(NomFichier, Separateur);
        fichier->EcrireTitres(TitresBalance());
    } else {
        ui->Tree1->Vider();
    }
    const QString& image = session().FormatMontant;
    const auto f = [&](Montant m) { return FormaterMontant(m, image); };
    if (!fichier) {
        AlignerMontants(ui->Tree1);
        ui->Tree1->DebutRemplissage();
    }
    for (const comptes::Compte& c : comptes::DeLaBalance(portee)) {
        const Montant sde = c.sde, cumD = c.cumD, cumC = c.cumC, solde = c.solde;
        if (sde == Montant() && cumD == Montant() && cumC == Montant()) continue;
        const QString& numero = c.numero;
        const QString& libelle = c.libelle;
        const int colonne = ColonneSolde(c.erCpt, solde);
        if (cumD != Montant()) debits += cumD.abs();
        if (cumC != Montant()) credits += cumC.abs();
        (colonne == 5 ? soldesDebit : soldesCredit) += solde.abs();
        if (fichier) {
            QStringList champs = {numero,
                                  libelle,
                                  NombreSimple(sde),
                                  cumD != Montant() ? NombreSimple(cumD) : QString(),
                                  cumC != Montant() ? NombreSimple(cumC) : QString(),
                                  QString(),
                                  QString()};
            champs[colonne] = NombreSimple(solde);
            fichier->EcrireLigne(champs, true);
        } else {
            QStringList textes = {numero,
                                  libelle,
                                  f(sde),
                                  cumD != Montant() ? f(cumD) : QString(),
                                  cumC != Montant() ? f(cumC) : QString(),
                                  QString(),
                                  QString()};
            textes[colonne] = f(solde);
            ui->Tree1->AjouterLigne(textes);
        }
    }
    if (fichier) {
        fichier->Fermer();
    } else {
        ui->Tree1->FinRemplissage();
        ui->Tree2->Vider();
        AlignerMontants(ui->Tree2);
        ui->Tree2->AjouterLigne({QStringLiteral(" "), QStringLiteral(" "),
                                 QStringLiteral("Totaux :"), f(debits), f(credits), f(soldesDebit),
                                 f(soldesCredit)});
        table::Compte c;
        if (!collectif.isEmpty() && LireCompte(CleCourante(), collectif, c)) {
            QStringList textes = {c.NumCpt.trimmed(),
                                  c.LibCpt.trimmed(),
                                  f(c.Sde),
                                  c.CumD != Montant() ? f(c.CumD) : QString(),
                                  c.CumC != Montant() ? f(c.CumC) : QString(),
                                  QString(),
                                  QString()};
            textes[ColonneSolde(c.ErCpt, c.Solde)] = f(c.Solde);
            ui->Tree2->AjouterLigne(textes);
        }
    }
    if (ui->BRCompl->isChecked()) {
        table::Constante k;
        LireConstante(CleCourante(), k);
        if (k.SDE1 != k.SDR1 && soldesDebit != soldesCredit)
            ui->Label1->setText(
                k.OuvertureClos
                    ? QStringLiteral("INFORMATION: La différence entre les soldes vient du fait "
                                     "que n'avez pas encore effectué le transfert définitif des "
                                     "soldes de l'exercice précédent.")
                    : QStringLiteral("INFORMATION: La différence entre les soldes vient de votre "
                                     "bilan d'ouverture qui n'est pas encore équilibré."));
    }
    if (ExportEnCours) {
        ExportEnCours = false;
        if (nom.isEmpty())
            nom = collectif == QLatin1String("410") ? QStringLiteral("Balance des clients")
                                                    : QStringLiteral("Balance des fournisseurs");
        TerminerExport(NomFichier,
                       QStringLiteral("La \"%1\" a été exportée sous \"%2\"").arg(nom, NomFichier),
                       QStringLiteral("Voulez-vous ouvrir cette balance maintenant ?"));
    }
}

void Balance::BRCompl_Click() {
    SauverPersonalisations();
    Form_Load();
}
void Balance::BRClient_Click() {
    SauverPersonalisations();
    Form_Load();
}
void Balance::BRFourn_Click() {
    SauverPersonalisations();
    Form_Load();
}

void Balance::Command3_Click() {
    const QString nom = ui->BRClient->isChecked()  ? QStringLiteral("Balance des clients")
                        : ui->BRFourn->isChecked() ? QStringLiteral("Balance des fournisseurs")
                                                   : QStringLiteral("Balance Générale");
    Separateur = SeparateurListe();
    const QString fichier = ChoisirFichierExport(nom + QStringLiteral(".csv"));
    if (fichier.isEmpty()) return;
    NomFichier = fichier;
    ExportEnCours = true;
    Form_Load();
    ExportEnCours = false;
}

void Balance::Tree1_DblClick() {
    const int ligne = ui->Tree1->LigneCourante();
    session().CompteChoisi =
        (ligne >= 0 ? ui->Tree1->Texte(ligne, 0) : QString()).left(8).trimmed();
    DetailCp detail(this);
    detail.exec();
}

void Balance::Tree1_ColumnResize(int colonne, int, int nouvelle) {
    ui->Tree2->FixerLargeurColonne(colonne, nouvelle);
}

void Balance::Command1_Click() {
    Retour();
}

void Balance::SauverPersonalisations() {
    ui::SauverPersonalisations(this, {ui->Tree1});
}

void Balance::done(int resultat) {
    if (!personalisationsSauvees) {
        personalisationsSauvees = true;
        SauverPersonalisations();
    }
    EcranModal::done(resultat);
}

} // namespace ecran
