#include "companies/CreSociete.h"

#include "backup/Restaure.h"
#include "base/Valeur.h"
#include "companies/OuvertureEcrans.h"
#include "companies/Restauration.h"
#include "fec/ImportFEC.h"
#include "session/Session.h"
#include "store/Exercices.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/Fin.h"
#include "ui/Horloge.h"
#include "ui_CreSociete.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QRegularExpressionValidator>

namespace ecran {

namespace {

const QString kMasqueTelephone = QStringLiteral("00 00 00 00 00;_");

int Valeur(const QLineEdit* champ) {
    return static_cast<int>(ValeurNumerique(champ->text()));
}

// Un numéro venu d'ailleurs (étranger, ponctué...) ne tient pas dans le masque : il reste
// alors tel quel plutôt que d'être amputé.
bool TientDansLeMasque(const QString& telephone) {
    QString chiffres;
    for (const QChar c : telephone) {
        if (c.isDigit())
            chiffres += c;
        else if (c != QLatin1Char(' '))
            return false;
    }
    return chiffres.size() <= 10;
}

} // namespace

CreSociete::CreSociete(QWidget* parent)
    : ui::EcranModal(parent), ui(std::make_unique<Ui::CreSociete>()) {
    ui->setupUi(this);
    // La page 5 est celle du plan comptable.
    FixerContexteAide(3);
    ui->Text5->setInputMask(kMasqueTelephone);
    ui->Text5->clear();
    auto* chiffres =
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d*")), this);
    ui->Text6->setValidator(chiffres);
    ui->Text7->setValidator(chiffres);
    ui->Text8->setValidator(chiffres);
    for (QLineEdit* champ :
         {ui->Text1, ui->Text2, ui->Text3, ui->Text4, ui->Text5, ui->Text6, ui->Text7, ui->Text8})
        champ->installEventFilter(this);
    connect(ui->Command1, &QPushButton::clicked, this, &CreSociete::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &CreSociete::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &CreSociete::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &CreSociete::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &CreSociete::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &CreSociete::Command6_Click);
    connect(ui->Command7, &QPushButton::clicked, this, &CreSociete::Command7_Click);
    Form_Load();
}

CreSociete::~CreSociete() = default;

void CreSociete::FixerNumSoc(int numero) {
    numSoc = numero;
    Form_Load();
}

void CreSociete::showEvent(QShowEvent* evenement) {
    ui::EcranModal::showEvent(evenement);
    if (charge) return;
    charge = true;
    // Les champs cachés en modification ne laissent pas de place vide.
    resize(width(), sizeHint().height());
    ui->Text1->setFocus(Qt::OtherFocusReason);
}

void CreSociete::Form_Load() {
    const bool creation = session().ModeCreSociete != 2;
    setWindowTitle(creation ? QStringLiteral("Créer une comptabilité")
                            : QStringLiteral("Modifier une comptabilité"));
    ui->Command1->setVisible(creation);
    ui->Command4->setVisible(!creation);
    ui->Text9->setVisible(!creation);
    ui->Label9->setVisible(!creation);
    ui->Frame1->setVisible(creation);
    ui->Command3->setVisible(creation);
    ui->Command7->setVisible(creation);
    if (creation) {
        // Un premier exercice qui commence le 1er janvier de l'année en cours, à changer.
        ui->Text6->setText(QStringLiteral("01"));
        ui->Text7->setText(QStringLiteral("01"));
        ui->Text8->setText(QString::number(ui::Aujourdhui().year()));
        return;
    }
    table::Societe r;
    if (numSoc <= 0 || !LireSociete(numSoc, r)) return;
    ui->Text9->setText(QString::number(numSoc));
    ui->Text1->setText(r.Nom.trimmed());
    ui->Text2->setText(r.Adresse.trimmed());
    ui->Text3->setText(r.Postal.trimmed());
    ui->Text4->setText(r.Ville.trimmed());
    const QString telephone = r.Telephone.trimmed();
    if (!TientDansLeMasque(telephone)) {
        ui->Text5->setInputMask(QString());
        ui->Text5->setMaxLength(15);
    }
    ui->Text5->setText(telephone);
}

QList<QLineEdit*> CreSociete::OrdreFleches() const {
    if (session().ModeCreSociete != 2)
        return {ui->Text1, ui->Text2, ui->Text3, ui->Text4, ui->Text5, ui->Text7, ui->Text8};
    return {ui->Text1, ui->Text2, ui->Text3, ui->Text4, ui->Text5};
}

bool CreSociete::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() != QEvent::KeyPress) return ui::EcranModal::eventFilter(objet, evenement);
    const int cle = static_cast<QKeyEvent*>(evenement)->key();
    const bool creation = session().ModeCreSociete != 2;
    if (cle == Qt::Key_Return || cle == Qt::Key_Enter) {
        if (objet == ui->Text5 && creation) ui->Text7->setFocus(Qt::TabFocusReason);
        if (objet == ui->Text8 && creation) ui->Command1->click();
        return true;
    }
    if (cle != Qt::Key_Up && cle != Qt::Key_Down)
        return ui::EcranModal::eventFilter(objet, evenement);
    // Les flèches parcourent les champs ; en modification elles ne quittent pas les
    // coordonnées (ni vers les dates, ni du dernier champ vers le premier).
    const QList<QLineEdit*> ordre = OrdreFleches();
    const int rang = ordre.indexOf(static_cast<QLineEdit*>(objet));
    if (rang < 0) return true;
    int suivant = cle == Qt::Key_Down ? rang + 1 : rang - 1;
    if (suivant >= ordre.size() || suivant < 0) {
        if (!creation) return true;
        suivant = (suivant + ordre.size()) % ordre.size();
    }
    ordre[suivant]->setFocus(Qt::TabFocusReason);
    ordre[suivant]->selectAll();
    return true;
}

void CreSociete::Refuser(const QString& texte, QLineEdit* champ) {
    ui::Boite(texte, QStringLiteral("Maroval"), ui::Icone::Exclamation);
    champ->setFocus(Qt::OtherFocusReason);
    champ->selectAll();
}

void CreSociete::Command1_Click() {
    const QString nom = ui->Text1->text().trimmed();
    if (nom.isEmpty()) {
        Refuser(QStringLiteral("Vous devez entrer un nom.\nRecommencez"), ui->Text1);
        return;
    }
    const int mois = Valeur(ui->Text7);
    if (mois < 1 || mois > 12) {
        Refuser(QStringLiteral("Le mois saisi est incorrect.\nRecommencez"), ui->Text7);
        return;
    }
    const int annee = Valeur(ui->Text8);
    if (annee < 1950 || annee > 2100) {
        Refuser(QStringLiteral("L'année saisie semble \"farfelue\".\nRecommencez"), ui->Text8);
        return;
    }
    if (annee != ui::Aujourdhui().year() &&
        ui::Boite(QStringLiteral("L'année saisie est différente de l'année en cours.\n"
                                 "Confirmez-vous ?"),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) != ui::Reponse::Oui) {
        ui->Text8->setFocus(Qt::OtherFocusReason);
        return;
    }
    // Le jour n'est pas contrôlé : il est seulement mis en forme dans la date de début.
    const int jour = Valeur(ui->Text6);
    const QString debut = CalculDateDebut(jour, mois, annee);

    table::Societe societe;
    societe.Nom = nom;
    societe.Adresse = ui->Text2->text();
    societe.Postal = ui->Text3->text();
    societe.Ville = ui->Text4->text();
    societe.Telephone = ui->Text5->text().trimmed();
    const int numero = AjouterSociete(societe);

    table::Constante c;
    c.CleCon = CleExercice(numero, annee);
    c.DateSaisie = debut;
    c.DateDebut = debut;
    c.DateFin = CalculDateFin(jour, mois, annee);
    c.SymboleMon = QStringLiteral("€");
    AjouterConstante(c);
    numSocCreee = numero;
    accept();
}

void CreSociete::Command4_Click() {
    table::Societe r;
    if (!LireSociete(numSoc, r)) {
        accept();
        return;
    }
    r.Nom = ui->Text1->text().left(30);
    r.Adresse = ui->Text2->text().left(50);
    r.Postal = ui->Text3->text().left(6);
    r.Ville = ui->Text4->text().left(35);
    r.Telephone = ui->Text5->text().trimmed().left(15);
    MajSociete(numSoc, r);
    accept();
}

void CreSociete::Command2_Click() {
    if (!session().AucuneSociete) {
        ui::EcranModal::reject();
        return;
    }
    if (ui::Boite(QStringLiteral("Vous ne pourrez pas utiliser MAROVAL si vous ne créez pas au "
                                 "moins UNE société.\n"
                                 "Cliquez sur Oui pour créer votre première société."),
                  QStringLiteral("Première utilisation de MAROVAL"), ui::Icone::Exclamation,
                  ui::Boutons::OuiNon) == ui::Reponse::Non)
        ui::TerminerProgramme(0);
    ui->Text1->setFocus(Qt::OtherFocusReason);
}

void CreSociete::closeEvent(QCloseEvent* evenement) {
    evenement->ignore();
    Command2_Click();
}

void CreSociete::Command3_Click() {
    MontrerAide();
}

void CreSociete::Command5_Click() {
    RestaurerBaseComplete();
}

void CreSociete::Command6_Click() {
    if (AvertissementAncienneRestauration(false)) OuvrirEcran<Restaure>(this);
}

void CreSociete::Command7_Click() {
    ImportFEC reprise(this);
    reprise.exec();
    if (ui::FinDemandee()) return;
    // La société reprise est la société créée : la liste des sociétés la choisira.
    if (reprise.NumSocCreee() > 0) {
        numSocCreee = reprise.NumSocCreee();
        accept();
    }
}

} // namespace ecran
