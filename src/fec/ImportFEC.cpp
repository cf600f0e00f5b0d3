#include "fec/ImportFEC.h"

#include "base/Texte.h"
#include "fec/RepriseFec.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/ChampDate.h"
#include "ui/Dialogues.h"
#include "ui/Sablier.h"

#include "ui_ImportFEC.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace ecran {

namespace {

constexpr int AideReprise = 42;
constexpr int ColonneJournal = 3;
// Au-delà, la liste dit combien de refus elle ne montre pas : le premier suffit à corriger.
constexpr int RefusMontres = 500;

} // namespace

ImportFEC::ImportFEC(QWidget* parent)
    : ui::EcranModal(parent), ui(std::make_unique<Ui::ImportFEC>()) {
    ui->setupUi(this);
    FixerContexteAide(AideReprise);
    ui->Tree1->FixerColonnes({QStringLiteral("Journal"), QStringLiteral("Libellé dans le fichier"),
                              QStringLiteral("Écritures"), QStringLiteral("Journal de Maroval")});
    ui->Tree1->FixerLargeurColonne(0, 70);
    ui->Tree1->FixerLargeurColonne(1, 200);
    ui->Tree1->FixerLargeurColonne(2, 75);
    ui->Tree1->FixerLargeurColonne(3, 240);
    ui->Tree1->FixerAlignementColonne(2, Qt::AlignRight | Qt::AlignVCenter);
    ui->Tree1->setMaximumHeight(150);
    for (const QString& code : fec::JournauxMaroval())
        ui->Combo1->addItem(fec::NomJournalMaroval(code), code);
    ui::PreparerChampDate(ui->Text2);
    ui::PreparerChampDate(ui->Text3);
    ui->List1->setMinimumHeight(110);
    ui->Gauge1->setRange(0, 100);
    ui->Gauge1->setValue(0);
    ui->Gauge1->setFormat(QStringLiteral("%p %"));
    ui->Command4->hide();
    ui->Command2->setEnabled(false);
    ui->Combo1->setEnabled(false);
    connect(ui->Command1, &QPushButton::clicked, this, &ImportFEC::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &ImportFEC::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &ImportFEC::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &ImportFEC::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &ImportFEC::Command5_Click);
    connect(ui->Tree1, &ui::Grille::ligneCouranteChangee, this, &ImportFEC::MontrerJournal);
    connect(ui->Combo1, &QComboBox::activated, this, &ImportFEC::ChangerJournal);
    ui->Label2->setText(QStringLiteral("Aucun fichier choisi."));
}

ImportFEC::~ImportFEC() = default;

void ImportFEC::Command1_Click() {
    const QString chemin = ui::ChoisirFichierOuvrir(
        QStringLiteral("Fichier des écritures comptables à reprendre"), QDir::homePath(),
        QStringLiteral("Fichiers des écritures (*.txt;*.csv)|*.txt;*.csv|Tous les fichiers "
                       "(*.*)|*.*"));
    if (!chemin.isEmpty()) ChargerFichier(chemin);
}

void ImportFEC::ChargerFichier(const QString& chemin) {
    QFile f(chemin);
    if (!f.open(QIODevice::ReadOnly)) {
        ui::Boite(QStringLiteral("Impossible de lire le fichier ") +
                      QDir::toNativeSeparators(chemin),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return;
    }
    {
        ui::Sablier sablier;
        fichier = fec::LireFec(f.readAll());
    }
    const QString nom = QFileInfo(chemin).fileName();
    fichierBon = fichier.refus.isEmpty();
    ui->Tree1->Vider();
    ui->Combo1->setEnabled(false);
    ui->Command2->setEnabled(fichierBon);
    if (!fichierBon) {
        ui->Label2->setText(QStringLiteral("%1 : ce fichier ne peut pas être repris (%2 refus, "
                                           "détaillés ci-dessous).")
                                .arg(nom)
                                .arg(fichier.refus.size()));
        Refus(fichier.refus);
        return;
    }
    ui->Label2->setText(
        QStringLiteral("%1 : %2 écritures, %3 lignes, du %4 au %5.")
            .arg(nom)
            .arg(fichier.ecritures.size())
            .arg(fichier.lignes)
            .arg(DateVersEcran(fichier.premierJour), DateVersEcran(fichier.dernierJour)));
    ui->List1->clear();
    ui->List1->addItem(QStringLiteral("Le fichier est lisible en entier : aucun refus."));
    for (const fec::JournalDuFichier& j : fec::JournauxDuFichier(fichier)) {
        const int ligne = ui->Tree1->AjouterLigne(
            {j.code, j.libelle, QString::number(j.ecritures), fec::NomJournalMaroval(j.propose)},
            j.code);
        ui->Tree1->FixerDonneeCellule(ligne, ColonneJournal, j.propose);
    }
    // Un nom proposé, à changer : le SIREN que porte le nom du fichier, sinon ce nom.
    if (ui->Text1->text().trimmed().isEmpty()) {
        static const QRegularExpression siren(QStringLiteral("^(\\d{9})FEC\\d{8}"),
                                              QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch m = siren.match(nom);
        ui->Text1->setText(m.hasMatch() ? QStringLiteral("Société ") + m.captured(1)
                                        : QFileInfo(chemin).completeBaseName().left(30));
    }
    QString debut, fin;
    fec::DatesProposees(fichier, nom, debut, fin);
    ui::FixerTexteDate(ui->Text2, DateVersEcran(debut));
    ui::FixerTexteDate(ui->Text3, DateVersEcran(fin));
    if (ui->Tree1->NombreLignes() > 0) ui->Tree1->FixerLigneCourante(0);
    ui->Text1->setFocus(Qt::OtherFocusReason);
    ui->Text1->selectAll();
}

void ImportFEC::MontrerJournal() {
    const int ligne = ui->Tree1->LigneCourante();
    ui->Combo1->setEnabled(ligne >= 0 && !enCours);
    if (ligne < 0) return;
    const int rang =
        ui->Combo1->findData(ui->Tree1->DonneeCellule(ligne, ColonneJournal).toString());
    if (rang >= 0) ui->Combo1->setCurrentIndex(rang);
}

void ImportFEC::ChangerJournal(int rang) {
    const int ligne = ui->Tree1->LigneCourante();
    if (ligne < 0 || rang < 0) return;
    const QString code = ui->Combo1->itemData(rang).toString();
    ui->Tree1->FixerDonneeCellule(ligne, ColonneJournal, code);
    ui->Tree1->FixerTexte(ligne, ColonneJournal, fec::NomJournalMaroval(code));
}

void ImportFEC::Refus(const QStringList& refus) {
    ui->List1->clear();
    for (int i = 0; i < refus.size() && i < RefusMontres; ++i)
        ui->List1->addItem(refus[i]);
    if (refus.size() > RefusMontres)
        ui->List1->addItem(
            QStringLiteral("… et %1 autres refus.").arg(refus.size() - RefusMontres));
}

void ImportFEC::Occupe(bool occupe) {
    enCours = occupe;
    for (QWidget* w :
         std::initializer_list<QWidget*>{ui->Command1, ui->Command2, ui->Command3, ui->Text1,
                                         ui->Text2, ui->Text3, ui->Tree1, ui->Combo1})
        w->setEnabled(!occupe);
    ui->Command4->setVisible(occupe);
    ui->Command4->setEnabled(occupe);
    if (occupe) ui->Command4->setFocus(Qt::OtherFocusReason);
}

void ImportFEC::Command2_Click() {
    if (!fichierBon || enCours) return;
    fec::Parametres p;
    p.nom = ui->Text1->text().trimmed();
    if (p.nom.isEmpty()) {
        ui::Boite(QStringLiteral("Vous devez entrer un nom.\nRecommencez"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        ui->Text1->setFocus(Qt::OtherFocusReason);
        return;
    }
    for (QLineEdit* champ : {ui->Text2, ui->Text3}) {
        if (DateValide(ui::TexteDate(champ))) continue;
        ui::Boite(QStringLiteral("Cette date n'est pas valide : tapez-la sous la forme "
                                 "JJ/MM/AAAA."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        champ->setFocus(Qt::OtherFocusReason);
        return;
    }
    p.debut = DateVersBase(ui::TexteDate(ui->Text2));
    p.fin = DateVersBase(ui::TexteDate(ui->Text3));
    for (int i = 0; i < ui->Tree1->NombreLignes(); ++i)
        p.journaux.insert(ui->Tree1->DonneeLigne(i).toString(),
                          ui->Tree1->DonneeCellule(i, ColonneJournal).toString());
    const QStringList refus = fec::ControlerReprise(fichier, p);
    if (!refus.isEmpty()) {
        Refus(refus);
        ui::Boite(QStringLiteral("La reprise n'est pas possible : la liste dit pourquoi, ligne "
                                 "par ligne."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return;
    }
    annulation = false;
    Occupe(true);
    ui->List1->clear();
    ui->List1->addItem(QStringLiteral("Reprise en cours…"));
    ui->Gauge1->setValue(0);
    int montre = -1;
    const fec::Resultat r = fec::ReprendreFec(fichier, p, [&](int fait, int total) {
        const int pourcent = total > 0 ? fait * 100 / total : 100;
        if (pourcent != montre) {
            montre = pourcent;
            ui->Gauge1->setValue(pourcent);
        }
        // L'écran répond pendant la reprise : la jauge avance, « Annuler » se clique.
        if (fait % 16 == 0 || fait == total) QCoreApplication::processEvents();
        return !annulation;
    });
    Occupe(false);
    ui->Gauge1->setValue(r.numSoc > 0 ? 100 : 0);
    if (r.annulee) {
        ui->List1->clear();
        ui->List1->addItem(QStringLiteral("Reprise annulée : rien n'a été gardé."));
        ui::Boite(QStringLiteral("La reprise est annulée : rien n'a été gardé."),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        return;
    }
    if (!r.erreur.isEmpty()) {
        Refus(r.erreur.split(QLatin1Char('\n')));
        ui::Boite(r.erreur, QStringLiteral("Maroval"), ui::Icone::Critique);
        return;
    }
    numSocCreee = r.numSoc;
    ui::Boite(QStringLiteral("La comptabilité « %1 » est reprise : %2 comptes, %3 écritures, %4 "
                             "lignes, et ses livres ont été vérifiés.\n\nChoisissez-la dans la "
                             "liste des sociétés pour y travailler.")
                  .arg(p.nom)
                  .arg(r.comptes)
                  .arg(r.ecritures)
                  .arg(r.lignes),
              QStringLiteral("Maroval"), ui::Icone::Information);
    accept();
}

void ImportFEC::Command3_Click() {
    if (enCours) return;
    Retour();
}

void ImportFEC::Command4_Click() {
    annulation = true;
}

void ImportFEC::Command5_Click() {
    MontrerAide();
}

void ImportFEC::done(int resultat) {
    if (enCours) {
        annulation = true;
        return;
    }
    ui::EcranModal::done(resultat);
}

} // namespace ecran
