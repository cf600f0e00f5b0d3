#include "treasury/Rappr.h"

#include "base/Texte.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "treasury/DonneesTresor.h"
#include "ui/Aide.h"
#include "ui/Grille.h"
#include "ui/Sablier.h"

#include "ui_Rappr.h"

#include <QCoreApplication>

namespace ecran {

namespace {

constexpr int ColonnePointage = 5;

} // namespace

Rappr::Rappr(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Rappr>()) {
    FixerContexteAide(12);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes(
        {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde")});
    const int largeurs1[] = {100, 300, 140};
    for (int c = 0; c < 3; ++c)
        ui->Tree1->FixerLargeurColonne(c, largeurs1[c]);
    ui->Tree1->FixerAlignementColonne(2, Qt::AlignRight | Qt::AlignVCenter);
    ui->Tree1->FixerTriMontants(2);
    ui->Tree2->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Date"),
                              QStringLiteral("Libellé"), QStringLiteral("Débit"),
                              QStringLiteral("Crédit"), QStringLiteral("Pointage")});
    const int largeurs2[] = {70, 90, 270, 110, 110, 70};
    for (int c = 0; c < 6; ++c)
        ui->Tree2->FixerLargeurColonne(c, largeurs2[c]);
    for (int c : {3, 4})
        ui->Tree2->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
    ui->Tree2->FixerAlignementColonne(ColonnePointage, Qt::AlignCenter);
    // Dates et montants sont des textes qui ne se trient pas comme leurs valeurs.
    for (int c : {1, 3, 4})
        ui->Tree2->FixerColonneTriable(c, false);

    connect(ui->Tree1, &ui::Grille::ligneCouranteChangee, this, [this] { Tree1_Choix(); });
    connect(ui->Tree1, &ui::Grille::ligneCliquee, this, [this] { Tree1_Choix(); });
    connect(ui->Tree2, &ui::Grille::ligneCliquee, this, [this](int ligne) { Tree2_Click(ligne); });
    connect(ui->Command1, &QPushButton::clicked, this, &Rappr::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Rappr::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Rappr::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Rappr::Command4_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &Rappr::Command6_Click);
    connect(ui->Command7, &QPushButton::clicked, this, &Rappr::Command7_Click);
    Form_Load();
}

Rappr::~Rappr() = default;

void Rappr::Form_Load() {
    ui::Sablier sablier;
    // L'ancienne forme du pointage disparaît de toute la base.
    tresor::NormaliserPointage();
    ui->Tree1->Vider();
    for (const tresor::CompteTiers& c : tresor::Comptes(CleCourante(), tresor::MenuBanques)) {
        // Le numéro comme nombre quand il en est un.
        bool nombre = false;
        const qlonglong n = c.numero.toLongLong(&nombre);
        ui->Tree1->AjouterLigne({c.numero, c.libelle.trimmed(), AfficheMontant(c.solde)},
                                nombre ? QVariant(n) : QVariant(c.numero));
    }
    ui->Tree1->Trier(0);
    if (ui->Tree1->NombreLignes() > 0) ui->Tree1->FixerLigneCourante(0);
}

QString Rappr::CompteChoisi() const {
    const int ligne = ui->Tree1->LigneChoisie();
    return ligne < 0 ? QString() : ui->Tree1->DonneeLigne(ligne).toString().trimmed();
}

void Rappr::Tree1_Choix() {
    const QString numero = CompteChoisi();
    if (numero.isEmpty()) return;
    table::Compte c;
    if (!LireCompte(CleCourante(), numero, c)) return;
    ui->Label10->setText(c.NumCpt.trimmed());
    ui->Label11->setText(c.LibCpt.trimmed());
    ui->Label3->setText(AfficheMontant(c.Sde));
    ui->Label5->setText(AfficheMontant(c.CumD));
    ui->Label7->setText(AfficheMontant(c.CumC));
    ui->Label9->setText(AfficheMontant(c.Solde));
    SoldeTheorique = c.Sde;
    SoldeBaseCpt = c.Sde;
}

void Rappr::FaceComptes(bool comptes) {
    ui->Command1->setEnabled(comptes);
    ui->Tree1->setVisible(comptes);
    ui->Tree2->setVisible(!comptes);
    ui->Label12->setVisible(!comptes);
    ui->Label13->setVisible(!comptes);
}

void Rappr::AffEcrituresPointage(tresor::Choix choix) {
    SoldeTheorique = SoldeBaseCpt;
    FaceComptes(false);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    ui->Tree2->Vider();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    ui::Sablier sablier;
    const QString cle = CleCourante();
    const QString numero = CompteChoisi();
    // Le solde théorique compte toutes les lignes pointées, quelle que soit la liste.
    SoldeTheorique += tresor::SommeLettrage(cle, numero, 1);
    const std::vector<tresor::LigneTiers> lignes = tresor::Lignes(cle, numero, choix);
    if (lignes.empty()) return;
    ui->Tree2->DebutRemplissage();
    for (const tresor::LigneTiers& l : lignes) {
        const QString montant = AfficheMontant(l.montant);
        const int ligne = ui->Tree2->AjouterLigne(
            {QString::number(static_cast<qint64>(l.numero)), DateVersEcran(l.dateEcr),
             l.libelle.trimmed(), l.debit ? montant : QString(), l.debit ? QString() : montant,
             l.lettrage == 0 ? QString() : QStringLiteral("OUI")},
            l.numero);
        if (l.lettrage != 0) ui->Tree2->FixerCouleurLigne(ligne, QColor(Qt::red));
    }
    ui->Tree2->FinRemplissage();
    ui->Label13->setText(AfficheMontant(SoldeTheorique));
}

void Rappr::Tree2_Click(int ligne) {
    if (ligne < 0 || ligne >= ui->Tree2->NombreLignes()) return;
    const double numero = ui->Tree2->DonneeLigne(ligne).toDouble();
    const bool pointee = ui->Tree2->Texte(ligne, ColonnePointage) == QLatin1String("OUI");
    const Montant m = tresor::Pointer(CleCourante(), numero, !pointee);
    if (pointee) {
        SoldeTheorique -= m;
        ui->Tree2->FixerTexte(ligne, ColonnePointage, QString());
        ui->Tree2->FixerCouleurLigne(ligne, QColor(Qt::black));
    } else {
        SoldeTheorique += m;
        ui->Tree2->FixerTexte(ligne, ColonnePointage, QStringLiteral("OUI"));
        ui->Tree2->FixerCouleurLigne(ligne, QColor(Qt::red));
    }
    ui->Label13->setText(AfficheMontant(SoldeTheorique));
}

void Rappr::Command1_Click() {
    ui->Label1->setText(QStringLiteral("Liste de toutes les écritures du compte"));
    AffEcrituresPointage(tresor::Choix::Toutes);
}

void Rappr::Command6_Click() {
    ui->Label1->setText(QStringLiteral("Liste des écritures qui n'ont pas encore été pointées"));
    AffEcrituresPointage(tresor::Choix::Ouvertes);
}

void Rappr::Command7_Click() {
    ui->Label1->setText(QStringLiteral("Liste des écritures qui ont été pointées"));
    AffEcrituresPointage(tresor::Choix::Pointees);
}

void Rappr::Command2_Click() {
    FaceComptes(true);
    ui->Label1->setText(QStringLiteral("Sélectionner un compte"));
}

void Rappr::Command3_Click() {
    MontrerAide();
}

void Rappr::Command4_Click() {
    Quitter();
}

} // namespace ecran
