#include "consultation/Journal.h"

#include "base/Texte.h"
#include "consultation/ColonnesJournal.h"
#include "consultation/DonneesJournal.h"
#include "consultation/Export.h"
#include "session/Session.h"
#include "ui/Boite.h"
#include "ui/Horloge.h"
#include "ui/Personalisation.h"
#include "ui_Journal.h"

#include <optional>

namespace ecran {

QString NomExportJournal(const QString& code) {
    if (code == QLatin1String("A")) return QStringLiteral("Achats");
    if (code == QLatin1String("V")) return QStringLiteral("Ventes");
    if (code == QLatin1String("T")) return QStringLiteral("Trésorerie");
    if (code == QLatin1String("D")) return QStringLiteral("Opérations Diverses");
    if (code == QLatin1String("I")) return QStringLiteral("Inventaire");
    return QStringLiteral("Journal Général");
}

Journal::Journal(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Journal>()) {
    FixerContexteAide(14);
    ui->setupUi(this);
    // Le nom du contrôle porte ses accents, comme l'option qu'il désigne.
    ui->BRGeneral->setObjectName(QStringLiteral("BRGénéral"));
    for (QPushButton* b : findChildren<QPushButton*>())
        b->setAutoDefault(false);
    PreparerColonnesJournal(ui->Tree1);
    const int largeurs[] = {60, 85, 85, 260, 80, 110, 110, 30};
    for (int c = 0; c < 8; ++c)
        ui->Tree1->FixerLargeurColonne(c, largeurs[c]);
    for (int m = 1; m <= 12; ++m)
        ui->Combo1->addItem(NomMois(m));
    ui->Gauge1->hide();
    ui->Command3->setEnabled(false);
    ui::RestaurerPersonalisations(this, {ui->Tree1});

    connect(ui->Command1, &QPushButton::clicked, this, &Journal::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Journal::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Journal::Command3_Click);
    connect(ui->BRGeneral, &QRadioButton::clicked, this, &Journal::BRGeneral_Click);
    connect(ui->BRAchats, &QRadioButton::clicked, this, &Journal::BRAchats_Click);
    connect(ui->BRVentes, &QRadioButton::clicked, this, &Journal::BRVentes_Click);
    connect(ui->BRTresor, &QRadioButton::clicked, this, &Journal::BRTresor_Click);
    connect(ui->BROpDiv, &QRadioButton::clicked, this, &Journal::BROpDiv_Click);
    connect(ui->BRInvent, &QRadioButton::clicked, this, &Journal::BRInvent_Click);
    connect(ui->BRCrois, &QRadioButton::clicked, this, &Journal::BRCrois_Click);
    connect(ui->BRDecrois, &QRadioButton::clicked, this, &Journal::BRDecrois_Click);
    connect(ui->BRGlobal, &QRadioButton::toggled, this, &Journal::BRGlobal_Click);
    connect(ui->BRMensuel, &QRadioButton::toggled, this, &Journal::BRMensuel_Click);
}

Journal::~Journal() = default;

void Journal::showEvent(QShowEvent* evenement) {
    EcranModal::showEvent(evenement);
    Form_Activate();
}

void Journal::Form_Activate() {
    ui->Combo1->setCurrentIndex(ui::Aujourdhui().month() - 1);
}

void Journal::ChoisirJournal(const QString& nouveau) {
    code = nouveau;
    ui->Tree1->Vider();
    Command2_Click();
}

void Journal::BRGeneral_Click() {
    ChoisirJournal(QStringLiteral("*"));
}
void Journal::BRAchats_Click() {
    ChoisirJournal(QStringLiteral("A"));
}
void Journal::BRVentes_Click() {
    ChoisirJournal(QStringLiteral("V"));
}
void Journal::BRTresor_Click() {
    ChoisirJournal(QStringLiteral("T"));
}
void Journal::BROpDiv_Click() {
    ChoisirJournal(QStringLiteral("D"));
}
void Journal::BRInvent_Click() {
    ChoisirJournal(QStringLiteral("I"));
}
void Journal::BRCrois_Click() {
    Command2_Click();
}
void Journal::BRDecrois_Click() {
    Command2_Click();
}

void Journal::BRGlobal_Click(bool choisi) {
    if (!choisi) return;
    for (QWidget* w :
         {static_cast<QWidget*>(ui->Combo1), static_cast<QWidget*>(ui->Frame4),
          static_cast<QWidget*>(ui->BRDateSaisie), static_cast<QWidget*>(ui->BRDatePiece)})
        w->setEnabled(false);
    Command2_Click();
}

void Journal::BRMensuel_Click(bool choisi) {
    if (!choisi) return;
    for (QWidget* w :
         {static_cast<QWidget*>(ui->Combo1), static_cast<QWidget*>(ui->Frame4),
          static_cast<QWidget*>(ui->BRDateSaisie), static_cast<QWidget*>(ui->BRDatePiece)})
        w->setEnabled(true);
}

void Journal::Command2_Click() {
    AffJournal(code, QString(), QString());
}

void Journal::AffJournal(const QString& Code, const QString& Fichier, const QString& Separateur) {
    if (!ui->BRCrois->isChecked() && !ui->BRDecrois->isChecked()) {
        ui::Boite(QStringLiteral("Choisissez un ordre de tri."), QStringLiteral("Maroval"),
                  ui::Icone::Exclamation);
        return;
    }
    ui->Command3->setEnabled(false);
    const bool mensuel = ui->BRMensuel->isChecked();
    const QString mois =
        QStringLiteral("%1").arg(ui->Combo1->currentIndex() + 1, 2, 10, QChar('0'));
    const int colonneDate = ui->BRDatePiece->isChecked() ? 2 : 1;
    const bool decroissant = ui->BRDecrois->isChecked();
    const bool ecran = Fichier.isEmpty();

    std::optional<FichierCsv> fichier;
    if (!ecran) {
        fichier.emplace(Fichier, Separateur);
        fichier->EcrireTitres(journal::Titres(QStringLiteral("Journal")));
    } else {
        ui->Tree1->Vider();
        ui->Gauge1->show();
    }
    const int total = journal::NombreLignes(Code);
    if (total == 0) {
        ui->Gauge1->hide();
        return;
    }
    ui->Gauge1->setMaximum(total);
    ui->Gauge1->setValue(0);

    const QString& image = session().FormatMontant;
    const Qt::Alignment droite = Qt::AlignRight | Qt::AlignVCenter;
    if (ecran) {
        for (int c : {0, 5, 6})
            ui->Tree1->FixerAlignementColonne(c, droite);
        // Rien ne se peint avant que toutes les lignes soient là.
        ui->Tree1->setUpdatesEnabled(false);
        ui->Tree1->DebutRemplissage();
    }
    const QStringList vide(journal::Titres().size(), QString());
    Montant debits, credits;
    int lu = 0;
    journal::LireLignes(Code, decroissant, [&](const journal::Ligne& l) {
        // La jauge avance par pas : la repeindre à chaque ligne coûterait plus que la ligne.
        if (++lu % 1000 == 0) ui->Gauge1->setValue(lu);
        if (mensuel && (colonneDate == 2 ? l.datePiece : l.dateEcr).mid(4, 2) != mois) return;
        if (!ecran) {
            QStringList textes = journal::Textes(l, NombreLocal(l.montant));
            // Le numéro s'exporte comme les autres nombres (espace devant un positif).
            textes[0] = NombreSimple(l.numero);
            fichier->EcrireLigne(textes, true);
            return;
        }
        // En ordre décroissant une écriture commence par sa ligne de fin.
        if (decroissant && l.fin && ui->Tree1->NombreLignes() > 0) ui->Tree1->AjouterLigne(vide);
        (l.debit ? debits : credits) += l.montant.abs();
        ui->Tree1->AjouterLigne(journal::Textes(l, FormaterMontant(l.montant, image)));
        if (!decroissant && l.fin) ui->Tree1->AjouterLigne(vide);
    });
    ui->Gauge1->setValue(lu);
    if (ecran) {
        ui->Tree1->FinRemplissage();
        ui->Tree1->setUpdatesEnabled(true);
        ui->Label1->setText(FormaterMontant(debits, image));
        ui->Label2->setText(FormaterMontant(credits, image));
    } else {
        fichier->Fermer();
    }
    if (ui->Tree1->NombreLignes() > 0) ui->Command3->setEnabled(true);
    ui->Gauge1->hide();
}

void Journal::Command3_Click() {
    const QString nom = NomExportJournal(code);
    const QString separateur = SeparateurListe();
    const QString fichier = ChoisirFichierExport(nom + QStringLiteral(".csv"));
    if (fichier.isEmpty()) return;
    AffJournal(code, fichier, separateur);
    TerminerExport(fichier,
                   QStringLiteral("Le journal \"%1\" a été exporté sous \"%2\"").arg(nom, fichier),
                   QStringLiteral("Voulez-vous ouvrir ce journal maintenant ?"));
}

void Journal::Command1_Click() {
    Retour();
}

void Journal::SauverPersonalisations() {
    ui::SauverPersonalisations(this, {ui->Tree1});
}

void Journal::done(int resultat) {
    if (!personalisationsSauvees) {
        personalisationsSauvees = true;
        SauverPersonalisations();
    }
    EcranModal::done(resultat);
}

} // namespace ecran
