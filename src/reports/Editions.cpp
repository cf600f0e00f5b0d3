#include "reports/Editions.h"

#include "base/Reglages.h"
#include "reports/Catalogue.h"
#include "reports/DonneesEtats.h"
#include "reports/EditCpt.h"
#include "reports/Impression.h"
#include "session/Session.h"
#include "ui/Boite.h"

#include "ui_Editions.h"

#include <QDir>
#include <QTimer>

namespace ecran {

Editions::Editions(QWidget* parent) : ui::EcranModal(parent), ui(new Ui::Editions) {
    FixerContexteAide(15);
    ui->setupUi(this);
    ui->Gauge1->setRange(0, 100);
    ui->Gauge1->hide();
    ui->Combo1->addItem(QStringLiteral("Tous"));
    for (const QString& mois : session().NomsMois)
        ui->Combo1->addItem(mois);
    const auto brancher = [this](QPushButton* b, auto action) {
        connect(b, &QPushButton::clicked, this, action);
    };
    brancher(ui->Command7, [this] { ImprimerGrdLivre(QString()); });
    brancher(ui->Command8, [this] { ImprimerPlan(); });
    brancher(ui->Command6, [this] { Command6_Click(); });
    brancher(ui->Command2, [this] { ImprimerBalance(QStringLiteral("G")); });
    brancher(ui->Command9, [this] { ImprimerBalance(QStringLiteral("C")); });
    brancher(ui->Command10, [this] { ImprimerBalance(QStringLiteral("F")); });
    const QList<std::pair<QPushButton*, QString>> journaux = {
        {ui->Command1, QStringLiteral("*")},  {ui->Command11, QStringLiteral("V")},
        {ui->Command12, QStringLiteral("A")}, {ui->Command13, QStringLiteral("T")},
        {ui->Command14, QStringLiteral("D")}, {ui->Command15, QStringLiteral("I")}};
    for (const auto& [bouton, code] : journaux)
        brancher(bouton,
                 [this, code = code] { ImprimerJournal(code, ui->Combo1->currentIndex()); });
    brancher(ui->Command16, [this] { ImprimerJourCent(); });
    brancher(ui->Command4, [this] { ImprimerResulBilan(QStringLiteral("R")); });
    brancher(ui->Command5, [this] { ImprimerResulBilan(QStringLiteral("B")); });
    brancher(ui->Command3, [this] { Command3_Click(); });
    Form_Load();
}

Editions::~Editions() {
    delete ui;
}

void Editions::Form_Load() {
    // Les états impriment les montants avec le symbole de l'exercice : celui du système est
    // gardé, remplacé le temps de l'écran, puis rendu.
    symboleSysteme = LireReglage(QStringLiteral("intl"), QStringLiteral("sCurrency")).left(256);
    EcrireReglage(QStringLiteral("intl"), QStringLiteral("sCurrency"), session().SymboleMonnaie);
    symboleEchange = true;

    const QString dossier = QDir::toNativeSeparators(session().DossierDonnees);
    const QString refaire =
        QStringLiteral("Supprimez manuellement le fichier %1/sauve.mdb et recommencez.")
            .arg(dossier);
    QString probleme;
    switch (etats::ExtraireExercice(session().DossierDonnees, CleCourante())) {
    case etats::Extraction::Faite:
        break;
    case etats::Extraction::EchecRecopie:
        probleme = QStringLiteral("Problème de recopie de %1/sauveb.mdb vers %1/sauve.mdb.\n")
                       .arg(dossier) +
                   refaire;
        break;
    case etats::Extraction::EchecEcriture:
        probleme =
            QStringLiteral("Problème pendant l'extraction de la table Ecriture.\n") + refaire;
        break;
    case etats::Extraction::EchecCompte:
        probleme = QStringLiteral("Problème pendant l'extraction de la table Compte.\n") + refaire;
        break;
    }
    if (!probleme.isEmpty()) {
        ui::Boite(probleme, QStringLiteral("Problème"), ui::Icone::Critique);
        QTimer::singleShot(0, this, [this] { Retour(); });
        return;
    }
    pret = true;
}

void Editions::done(int resultat) {
    if (symboleEchange) {
        EcrireReglage(QStringLiteral("intl"), QStringLiteral("sCurrency"), symboleSysteme);
        symboleEchange = false;
    }
    ui::EcranModal::done(resultat);
}

void Editions::Imprimer(const rapport::Document& document) {
    rapport::ImprimerOuEnregistrer(document, ui->CBPdf->isChecked());
}

void Editions::ImprimerBalance(const QString& code) {
    Imprimer(rapport::EtatBalance(code));
}

void Editions::ImprimerGrdLivre(const QString& compte) {
    Imprimer(rapport::EtatGrandLivre(compte));
}

void Editions::ImprimerJournal(const QString& code, int mois) {
    Imprimer(rapport::EtatJournal(code, mois));
}

void Editions::ImprimerJourCent() {
    ui->Gauge1->setValue(0);
    ui->Gauge1->show();
    etats::RemplirJourCent(CleCourante(), session().NomsMois, [this](int n) {
        ui->Gauge1->setValue(n);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    ui->Gauge1->hide();
    Imprimer(rapport::EtatJourCent());
}

void Editions::ImprimerResulBilan(const QString& code) {
    etats::RemplirWbilan(CleCourante(), code);
    Imprimer(rapport::EtatResulBilan(code));
}

void Editions::ImprimerPlan() {
    Imprimer(rapport::EtatPlan());
}

void Editions::Command3_Click() {
    Quitter();
}

void Editions::Command6_Click() {
    EditCpt choix([this](const QString& compte) { ImprimerGrdLivre(compte); }, this);
    choix.exec();
}

} // namespace ecran
