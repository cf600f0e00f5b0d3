#include "budget/SaisieBudget.h"

#include "base/Texte.h"
#include "budget/DonneesBudget.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Grille.h"

#include "ui_SaisieBudget.h"

#include <QKeyEvent>
#include <QRegularExpressionValidator>

namespace ecran {

namespace {

constexpr int ColonnePrevision = 3, ColonnePourcentage = 4, ColonnePrevisionsAnnuelles = 5;

// Un montant tapé : chiffres, blancs, un signe, une virgule ou un point.
bool MontantLisible(const QString& texte) {
    static const QRegularExpression forme(QStringLiteral("^-?[0-9 ]*([.,][0-9]*)?$"));
    return forme.match(texte.trimmed()).hasMatch();
}

void Attention(const QString& texte) {
    ui::Boite(texte, QStringLiteral("Attention"), ui::Icone::Exclamation);
}

const QString TotalVide = QStringLiteral("Le total annuel de la prévision doit être rempli !");

} // namespace

SaisieBudget::SaisieBudget(QWidget* parent, bool suivant)
    : ui::EcranModal(parent), ui(std::make_unique<Ui::SaisieBudget>()), suivant(suivant) {
    FixerContexteAide(17);
    ui->setupUi(this);
    ui->Text1->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9.,]*")), ui->Text1));
    ui->Text1->installEventFilter(this);

    ui->Tree2->FixerValidation([this](int ligne, int colonne, QString& texte) {
        const QString saisi = texte.trimmed().isEmpty() ? QStringLiteral("0") : texte;
        if (colonne == ColonnePrevision) {
            if (!MontantLisible(saisi)) {
                ui::Boite(QStringLiteral("Votre saisie n'est pas correcte, recommencez"));
                return ui::Grille::Validation::GarderOuvert;
            }
            const Montant m = MontantDepuisTexte(PointVersVirgule(saisi));
            texte = AfficheMontant(m);
            CalculCumul(ligne, m);
            SaisieModifiee = true;
            return ui::Grille::Validation::Accepter;
        }
        double p = 0;
        if (!LirePourcentage(saisi, p)) {
            ui::Boite(QStringLiteral("Votre saisie n'est pas correcte, recommencez"));
            return ui::Grille::Validation::GarderOuvert;
        }
        texte = FormatPourcent(p / 100);
        if (CalculCumulPrc(ligne, p))
            CalculPrct(ligne, p);
        else
            Attention(QStringLiteral("Vous êtes en train de dépasser les 100% !"));
        return ui::Grille::Validation::Accepter;
    });

    const auto option = [this](QRadioButton* b, int mode) {
        connect(b, &QRadioButton::toggled, this, [this, mode](bool coche) {
            if (coche) ChoisirMode(mode);
        });
    };
    option(ui->Option1, 1);
    option(ui->Option2, 2);
    option(ui->Option3, 3);
    connect(ui->Tree1, &ui::Grille::ligneCliquee, this, [this] { Tree1_Click(); });
    connect(ui->Tree2, &ui::Grille::ligneCliquee, this, [this](int ligne) { Tree2_Click(ligne); });
    connect(ui->Text1, &QLineEdit::returnPressed, this, &SaisieBudget::Text1_Entree);
    connect(ui->Command2, &QPushButton::clicked, this, &SaisieBudget::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &SaisieBudget::Command3_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &SaisieBudget::Command5_Click);

    ModeVentil = 1;
    ActionLChoix();
    MajTree1();
}

SaisieBudget::~SaisieBudget() = default;

bool SaisieBudget::eventFilter(QObject* objet, QEvent* evenement) {
    // Les minuscules tapées dans le total deviennent des majuscules, que le champ refuse
    // comme tout ce qui n'est ni chiffre, ni virgule, ni point.
    if (objet == ui->Text1 && evenement->type() == QEvent::KeyPress) {
        auto* touche = static_cast<QKeyEvent*>(evenement);
        const QString t = touche->text();
        if (t.size() == 1 && t.at(0).isLetter()) return true;
    }
    return ui::EcranModal::eventFilter(objet, evenement);
}

QString SaisieBudget::TitrePrevision(const QString& debut) const {
    return debut + QString::number(session().ExerciceCourant + (suivant ? 1 : 0));
}

void SaisieBudget::ActionLChoix() {
    const bool total = ModeVentil != 1;
    ui->Label1->setVisible(total);
    ui->Text1->setVisible(total);
    ui->Label2->setVisible(ModeVentil != 3);
    ui->Label3->setVisible(ModeVentil != 3);
    ui->Label4->setVisible(ModeVentil == 2);
    ui->Label5->setVisible(ModeVentil == 2);
    ui->Command2->setVisible(ModeVentil == 3);
    if (total) ui->Text1->setFocus();
}

bool SaisieBudget::TotalAnnuelVide() const {
    return ui->Text1->text().trimmed().isEmpty() || MontantDepuisTexte(ui->Text1->text()).estNul();
}

void SaisieBudget::PoserColonnes() {
    const int largeurs1[] = {80, 90, 260, 130, 130, 130};
    const int largeurs2[] = {120, 130, 130, 130, 100};
    for (int c = 0; c < 6; ++c) {
        ui->Tree1->FixerLargeurColonne(c, largeurs1[c]);
        if (c >= 3) {
            ui->Tree1->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
            // Seules les trois premières colonnes se trient.
            ui->Tree1->FixerColonneTriable(c, false);
        }
    }
    for (int c = 0; c < 5; ++c) {
        ui->Tree2->FixerLargeurColonne(c, largeurs2[c]);
        ui->Tree2->FixerColonneTriable(c, false);
        if (c >= 1) ui->Tree2->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
    }
}

void SaisieBudget::MajTree1() {
    const QString an = QString::number(session().ExerciceCourant);
    const QString anterieur = QString::number(session().ExerciceCourant - 1);
    // Les titres changent avec l'exercice : largeurs et alignements sont posés après eux.
    ui->Tree1->FixerColonnes({QStringLiteral("Classe"), QStringLiteral("Numéro"),
                              QStringLiteral("Libellé"), QStringLiteral("Réalisé ") + anterieur,
                              QStringLiteral("Réalisé ") + an,
                              TitrePrevision(QStringLiteral("Prévisions "))});
    ui->Tree2->FixerColonnes({QStringLiteral("Mois"), QStringLiteral("Réalisé ") + anterieur,
                              QStringLiteral("Réalisé ") + an,
                              TitrePrevision(QStringLiteral("Prévision ")),
                              QStringLiteral("Pourcentage")});
    PoserColonnes();
    ui->Tree1->Vider();
    for (const table::Budget& b : budget::Lignes(CleCourante())) {
        const bool charge = b.ERBUD.trimmed() == QLatin1String("E2");
        const int ligne = ui->Tree1->AjouterLigne(
            {charge ? QStringLiteral("Charges") : QStringLiteral("Produits"), b.NumBud.trimmed(),
             b.LibBud.trimmed(), AfficheMontant(b.ReelA), AfficheMontant(b.Reel),
             AfficheMontant(suivant ? b.BudFut : b.Budget)},
            b.NumBud.trimmed());
        const QColor couleur = charge ? QColor(160, 40, 40) : QColor(20, 110, 40);
        ui->Tree1->FixerCouleurCellule(ligne, 0, couleur);
        ui->Tree1->FixerCouleurCellule(ligne, 1, couleur);
    }
    ui->Tree1->Trier(0);
}

void SaisieBudget::RemplirMois(const QString& numBud) {
    ui->Tree2->Vider();
    table::Budget b;
    if (!LireBudget(CleCourante(), numBud, b)) return;
    const table::Mensuel& prevision = suivant ? b.BudFutM : b.BudgetM;
    // Les champs sont ceux du mois du calendrier, quel que soit le rang de la ligne.
    for (const int m : budget::MoisDeLExercice(session().MoisDebutExercice)) {
        const auto i = static_cast<std::size_t>(m);
        ui->Tree2->AjouterLigne({NomMois(m), AfficheMontant(b.ReelAM[i]),
                                 AfficheMontant(b.ReelM[i]), AfficheMontant(prevision[i]),
                                 QString()},
                                m);
    }
}

void SaisieBudget::Tree1_Click() {
    const int ligne = ui->Tree1->LigneChoisie();
    if (ligne < 0) return;
    const QString numBud = ui->Tree1->DonneeLigne(ligne).toString();
    table::Budget b;
    if (!LireBudget(CleCourante(), numBud, b)) return;
    ui->Label2->clear();
    ui->Label5->clear();
    ui->Label6->setText(b.NumBud.trimmed() + QLatin1Char(' ') + b.LibBud.trimmed());
    RemplirMois(numBud);
}

void SaisieBudget::ChoisirMode(int mode) {
    if (ui->Tree1->LigneChoisie() < 0) return;
    ModeVentil = mode;
    ActionLChoix();
    const int ligne = ui->Tree2->LigneCourante();
    if (ligne >= 0 && mode != 3)
        ui->Tree2->EditerCellule(ligne, mode == 1 ? ColonnePrevision : ColonnePourcentage);
}

void SaisieBudget::Tree2_Click(int ligne) {
    if (ligne < 0) return;
    if (ModeVentil == 1) {
        ui->Tree2->EditerCellule(ligne, ColonnePrevision);
    } else if (ModeVentil == 2) {
        if (TotalAnnuelVide()) {
            Attention(TotalVide);
            ui->Text1->setFocus();
            return;
        }
        ui->Tree2->EditerCellule(ligne, ColonnePourcentage);
    }
}

void SaisieBudget::Text1_Entree() {
    if (ModeVentil == 3) {
        Command2_Click();
        return;
    }
    const int ligne = ui->Tree2->LigneCourante();
    if (ModeVentil == 2 && ligne >= 0) {
        ui->Label5->setText(FormatPourcent(1));
        for (int i = 0; i < ui->Tree2->NombreLignes(); ++i)
            ui->Tree2->FixerTexte(i, ColonnePrevision, AfficheMontant(Montant()));
        ui->Tree2->EditerCellule(ligne, ColonnePourcentage);
    }
}

void SaisieBudget::CalculCumul(int ligne, Montant montant) {
    Montant cumul;
    for (int i = 0; i < ui->Tree2->NombreLignes(); ++i)
        cumul += i == ligne ? montant : MontantDepuisTexte(ui->Tree2->Texte(i, ColonnePrevision));
    ui->Label2->setText(AfficheMontant(cumul));
}

bool SaisieBudget::CalculCumulPrc(int ligne, double pourcentage) {
    double somme = 0;
    for (int i = 0; i < ui->Tree2->NombreLignes(); ++i) {
        double p = 0;
        if (i == ligne)
            p = pourcentage;
        else
            LirePourcentage(ui->Tree2->Texte(i, ColonnePourcentage), p);
        somme += p;
    }
    ui->Label5->setText(FormatPourcent((100 - somme) / 100));
    return somme <= 100 + 1e-9;
}

void SaisieBudget::CalculPrct(int ligne, double pourcentage) {
    const Montant total = MontantDepuisTexte(VirguleVersPoint(ui->Text1->text()));
    const Montant montant = Montant::depuisDouble(total.enDouble() * (pourcentage / 100));
    ui->Tree2->FixerTexte(ligne, ColonnePrevision, AfficheMontant(montant));
    CalculCumul(ligne, montant);
}

void SaisieBudget::Command2_Click() {
    if (ui->Tree1->LigneChoisie() < 0) {
        Attention(QStringLiteral("Sélectionnez d'abord un compte dans la liste du haut !"));
        return;
    }
    if (TotalAnnuelVide()) {
        Attention(TotalVide);
        ui->Text1->setFocus();
        return;
    }
    ui->Text1->setText(VirguleVersPoint(ui->Text1->text()));
    const Montant total = MontantDepuisTexte(ui->Text1->text());
    // Chaque mois le même douzième, arrondi par l'affichage seul.
    const Montant douzieme = Montant::depuisDixMilliemes(total.dixMilliemes() / 12);
    for (int i = 0; i < ui->Tree2->NombreLignes(); ++i)
        ui->Tree2->FixerTexte(i, ColonnePrevision, AfficheMontant(douzieme));
}

void SaisieBudget::Command3_Click() {
    Retour();
}

void SaisieBudget::Command5_Click() {
    if (ModeVentil == 2) {
        if (ui->Text1->text().trimmed().isEmpty()) {
            ui::Boite(QStringLiteral("Le total annuel doit être saisi avant de cliquer sur Ok"));
            return;
        }
        double reste = 0;
        LirePourcentage(ui->Label5->text(), reste);
        if (reste != 0 &&
            ui::Boite(QStringLiteral("Vous avez ventilé %1 sur les %2 prévus initialement.\n"
                                     "Voulez-vous continuer ?")
                          .arg(ui->Label2->text(), AfficheMontant(MontantDepuisTexte(
                                                       VirguleVersPoint(ui->Text1->text())))),
                      QStringLiteral("Maroval"), ui::Icone::Question,
                      ui::Boutons::OuiNon) != ui::Reponse::Oui)
            return;
    }
    const int ligne = ui->Tree1->LigneChoisie();
    if (ligne < 0 || ui->Tree2->NombreLignes() == 0) return;
    const QString numBud = ui->Tree1->DonneeLigne(ligne).toString();
    table::Mensuel mois{};
    Montant total;
    for (int i = 0; i < ui->Tree2->NombreLignes(); ++i) {
        const int m = ui->Tree2->DonneeLigne(i).toInt();
        if (m < 1 || m > 12) continue;
        const Montant montant = MontantDepuisTexte(ui->Tree2->Texte(i, ColonnePrevision));
        mois[static_cast<std::size_t>(m)] = montant;
        total += montant;
    }
    budget::EnregistrerPrevisions(CleCourante(), numBud, suivant, mois);
    ui->Tree2->Vider();
    if (suivant)
        ui->Tree1->FixerTexte(ligne, ColonnePrevisionsAnnuelles, AfficheMontant(total));
    else
        MajTree1();
    ui->Label2->clear();
    ModeVentil = 1;
    {
        const QSignalBlocker bloque(ui->Option1);
        ui->Option1->setChecked(true);
    }
    ActionLChoix();
    SaisieModifiee = false;
    // L'utilisateur descend la liste, un compte par validation.
    if (ligne + 1 < ui->Tree1->NombreLignes()) {
        ui->Tree1->FixerLigneCourante(ligne + 1);
        Tree1_Click();
    } else {
        ui->Tree1->FixerLigneCourante(ligne);
    }
}

Budget01::Budget01(QWidget* parent) : SaisieBudget(parent, true) {
    setObjectName(QStringLiteral("Budget01"));
    setWindowTitle(QStringLiteral("Gestion du budget de l'exercice suivant"));
}

Budget02::Budget02(QWidget* parent) : SaisieBudget(parent, false) {
    setObjectName(QStringLiteral("Budget02"));
    setWindowTitle(QStringLiteral("Gestion du budget de l'exercice en cours"));
}

} // namespace ecran
