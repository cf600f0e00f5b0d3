#include "support/PiloteModal.h"

#include "ui/EcranModal.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QtTest>

namespace support {

namespace {

QPointer<PiloteModal> actif;

QString SansEsperluette(QString texte) {
    texte.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    texte.remove(QLatin1Char('&'));
    texte.replace(QStringLiteral("\x01"), QStringLiteral("&"));
    return texte;
}

QString Nom(const QWidget* racine) {
    return racine ? DecrireFenetre(racine) : QStringLiteral("?");
}

template <typename T> T* TrouverObjet(QWidget* racine, const QString& nom) {
    if (!racine) return nullptr;
    if (racine->objectName() == nom)
        if (auto* lui = qobject_cast<T*>(racine)) return lui;
    return racine->findChild<T*>(nom);
}

} // namespace

void TaperCaracteres(QWidget* cible, const QString& texte) {
    for (const QChar c : texte) {
        // QTest::keyClicks ne connaît que l'ASCII : les lettres accentuées passent par leur
        // texte, avec le code de touche de Qt quand il existe (Key_Eacute...).
        if (c.unicode() < 0x80) {
            QTest::keyClick(cible, c.toLatin1());
            continue;
        }
        const char16_t majuscule = c.toUpper().unicode();
        const Qt::Key cle = majuscule <= 0xff ? Qt::Key(majuscule) : Qt::Key_unknown;
        QTest::sendKeyEvent(QTest::Click, cible, cle, QString(c), Qt::NoModifier);
    }
}

QString PiloteModal::Etape::Description() const {
    switch (genre) {
    case Boite:
        return QStringLiteral("boîte « %1 »").arg(texte);
    case Fenetre:
        return QStringLiteral("fenêtre « %1 »").arg(nom);
    case Modale:
        break;
    }
    return QStringLiteral("écran modal « %1 »").arg(nom);
}

PiloteModal::PiloteModal(int delaiParEtapeMs, QObject* parent)
    : QObject(parent), delai(delaiParEtapeMs) {
    minuterie.setInterval(20);
    connect(&minuterie, &QTimer::timeout, this, &PiloteModal::Guetter);
}

PiloteModal::~PiloteModal() {
    Arreter();
}

PiloteModal& PiloteModal::Ajouter(Etape etape) {
    etapes.append(std::move(etape));
    return *this;
}

PiloteModal& PiloteModal::Attendre(const QString& nomObjet, Action action) {
    return Ajouter({Etape::Modale, nomObjet, QString(), std::move(action)});
}

PiloteModal& PiloteModal::AttendreFenetre(const QString& nomObjet, Action action) {
    return Ajouter({Etape::Fenetre, nomObjet, QString(), std::move(action)});
}

PiloteModal& PiloteModal::AttendreBoite(const QString& texte, const QString& bouton) {
    return AttendreBoite(texte, Repondre(bouton));
}

PiloteModal& PiloteModal::AttendreBoite(const QString& texte, Action action) {
    return Ajouter({Etape::Boite, QStringLiteral("Boite"), texte, std::move(action)});
}

void PiloteModal::Demarrer() {
    actif = this;
    chronoEtape.start();
    chronoReste.invalidate();
    minuterie.start();
}

void PiloteModal::Arreter() {
    minuterie.stop();
    if (actif == this) actif = nullptr;
}

PiloteModal* PiloteModal::Actif() {
    return actif;
}

bool PiloteModal::Reussi() const {
    return !Echoue() && etapeCourante == etapes.size() && !actionEnAttente;
}

bool PiloteModal::AttendreFin(int delaiMs) {
    if (!QTest::qWaitFor([this] { return Echoue() || Reussi(); }, delaiMs))
        Echouer(QStringLiteral("Étapes non terminées en %1 ms").arg(delaiMs));
    return Reussi();
}

QWidget* PiloteModal::Chercher(const Etape& etape) const {
    if (etape.genre == Etape::Fenetre) {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible() && w->objectName() == etape.nom) return w;
        return nullptr;
    }
    QWidget* haut = QApplication::activeModalWidget();
    if (!haut || haut->objectName() != etape.nom) return nullptr;
    if (etape.genre == Etape::Boite) {
        auto* boite = qobject_cast<QMessageBox*>(haut);
        if (!boite || boite->text() != etape.texte) return nullptr;
    }
    return haut;
}

void PiloteModal::Guetter() {
    if (Echoue() || actionEnAttente) return;
    if (etapeCourante >= etapes.size()) {
        // Après la dernière étape, une fenêtre modale qui reste bloquerait le test.
        QWidget* haut = QApplication::activeModalWidget();
        if (!haut) {
            chronoReste.invalidate();
        } else if (!chronoReste.isValid()) {
            chronoReste.start();
        } else if (chronoReste.elapsed() > delai) {
            Echouer(QStringLiteral("Après la dernière étape, %1 reste ouverte").arg(Nom(haut)));
        }
        return;
    }
    const Etape& etape = etapes[etapeCourante];
    QWidget* fenetre = Chercher(etape);
    if (!fenetre) {
        if (chronoEtape.elapsed() > delai) {
            QWidget* haut = QApplication::activeModalWidget();
            Echouer(QStringLiteral("Étape %1 : %2 attendue en %3 ms ; fenêtre modale active : %4")
                        .arg(etapeCourante + 1)
                        .arg(etape.Description())
                        .arg(delai)
                        .arg(haut ? Nom(haut) : QStringLiteral("aucune")));
        }
        return;
    }
    vus.append(etape.Description());
    ++etapeCourante;
    actionEnAttente = true;
    QPointer<QWidget> cible(fenetre);
    Action action = etape.action;
    const QString description = etape.Description();
    // Hors du gestionnaire de la minuterie : l'action peut ouvrir une boucle modale.
    QTimer::singleShot(0, this, [this, cible, action, description] {
        actionEnAttente = false;
        chronoEtape.start();
        if (!cible) {
            Echouer(QStringLiteral("%1 a disparu avant l'action").arg(description));
            return;
        }
        if (action) action(cible);
    });
}

void PiloteModal::Echouer(const QString& message) {
    if (Echoue()) return;
    messageEchec = message;
    minuterie.stop();
    qWarning("PiloteModal : %s", qPrintable(message));
    emit echec(message);
    // Tout se ferme, la plus haute d'abord : le test reprend la main.
    ui::PileModale::FermerTout();
}

void SignalerEchec(const QString& message) {
    if (actif)
        actif->Echouer(message);
    else
        qWarning("PiloteModal : %s", qPrintable(message));
}

QString DecrireFenetre(const QWidget* fenetre) {
    if (!fenetre) return QStringLiteral("aucune");
    if (auto* boite = qobject_cast<const QMessageBox*>(fenetre))
        return QStringLiteral("« %1 » (« %2 »)").arg(boite->objectName(), boite->text());
    return QStringLiteral("« %1 »").arg(fenetre->objectName());
}

QAbstractButton* TrouverBouton(QWidget* racine, const QString& nomOuLibelle) {
    if (auto* b = TrouverObjet<QAbstractButton>(racine, nomOuLibelle)) return b;
    if (!racine) return nullptr;
    QAbstractButton* trouve = nullptr;
    for (QAbstractButton* b : racine->findChildren<QAbstractButton*>()) {
        if (SansEsperluette(b->text()) != SansEsperluette(nomOuLibelle)) continue;
        if (b->isVisible()) return b;
        if (!trouve) trouve = b;
    }
    return trouve;
}

bool CliquerBouton(QWidget* racine, const QString& nomOuLibelle) {
    QAbstractButton* bouton = TrouverBouton(racine, nomOuLibelle);
    if (!bouton) {
        SignalerEchec(
            QStringLiteral("Bouton « %1 » introuvable dans %2").arg(nomOuLibelle, Nom(racine)));
        return false;
    }
    if (!bouton->isVisible() || !bouton->isEnabled()) {
        SignalerEchec(
            QStringLiteral("Bouton « %1 » de %2 %3")
                .arg(nomOuLibelle, Nom(racine),
                     bouton->isVisible() ? QStringLiteral("désactivé") : QStringLiteral("caché")));
        return false;
    }
    // Un vrai clic : le bouton prend le focus, comme pour l'utilisateur.
    QTest::mouseClick(bouton, Qt::LeftButton, Qt::NoModifier, bouton->rect().center());
    return true;
}

bool TaperTexte(QWidget* racine, const QString& champ, const QString& texte) {
    auto* ligne = TrouverObjet<QLineEdit>(racine, champ);
    if (!ligne) {
        SignalerEchec(QStringLiteral("Champ « %1 » introuvable dans %2").arg(champ, Nom(racine)));
        return false;
    }
    ligne->setFocus(Qt::OtherFocusReason);
    ligne->clear();
    TaperCaracteres(ligne, texte);
    return true;
}

bool ChoisirLigneListe(QWidget* racine, const QString& liste, int ligne, bool doubleClic) {
    auto* vue = TrouverObjet<QAbstractItemView>(racine, liste);
    if (!vue || !vue->model()) {
        SignalerEchec(QStringLiteral("Liste « %1 » introuvable dans %2").arg(liste, Nom(racine)));
        return false;
    }
    const QModelIndex index = vue->model()->index(ligne, 0);
    if (!index.isValid()) {
        SignalerEchec(QStringLiteral("Liste « %1 » : pas de ligne %2").arg(liste).arg(ligne));
        return false;
    }
    vue->scrollTo(index);
    const QPoint point = vue->visualRect(index).center();
    QTest::mouseClick(vue->viewport(), Qt::LeftButton, Qt::NoModifier, point);
    if (doubleClic) {
        // La suite de l'utilisateur : appui, relâche, double appui, relâche.
        QTest::mouseDClick(vue->viewport(), Qt::LeftButton, Qt::NoModifier, point);
        QTest::mouseRelease(vue->viewport(), Qt::LeftButton, Qt::NoModifier, point);
    }
    return true;
}

bool AppuyerTouche(QWidget* racine, Qt::Key cle, const QString& cible) {
    QWidget* destinataire = racine;
    if (!cible.isEmpty())
        destinataire = TrouverObjet<QWidget>(racine, cible);
    else if (racine && racine->focusWidget())
        destinataire = racine->focusWidget();
    if (!destinataire) {
        SignalerEchec(QStringLiteral("« %1 » introuvable dans %2").arg(cible, Nom(racine)));
        return false;
    }
    QTest::keyClick(destinataire, cle);
    return true;
}

Action Cliquer(const QString& nomOuLibelle) {
    return [nomOuLibelle](QWidget* f) { CliquerBouton(f, nomOuLibelle); };
}

Action Repondre(const QString& libelleBouton) {
    return Cliquer(libelleBouton);
}

Action Taper(const QString& champ, const QString& texte) {
    return [champ, texte](QWidget* f) { TaperTexte(f, champ, texte); };
}

Action ChoisirLigne(const QString& liste, int ligne) {
    return [liste, ligne](QWidget* f) { ChoisirLigneListe(f, liste, ligne); };
}

Action DoubleCliquerLigne(const QString& liste, int ligne) {
    return [liste, ligne](QWidget* f) { ChoisirLigneListe(f, liste, ligne, true); };
}

Action ChoisirTexte(const QString& liste, const QString& texte) {
    return [liste, texte](QWidget* f) {
        auto* vue = TrouverObjet<QAbstractItemView>(f, liste);
        const QModelIndexList trouves =
            vue && vue->model() ? vue->model()->match(vue->model()->index(0, 0), Qt::DisplayRole,
                                                      texte, 1, Qt::MatchExactly)
                                : QModelIndexList();
        if (trouves.isEmpty()) {
            SignalerEchec(QStringLiteral("Liste « %1 » : pas de ligne « %2 »").arg(liste, texte));
            return;
        }
        ChoisirLigneListe(f, liste, trouves.first().row());
    };
}

Action Touche(Qt::Key cle, const QString& cible) {
    return [cle, cible](QWidget* f) { AppuyerTouche(f, cle, cible); };
}

Action Fermer() {
    return [](QWidget* f) {
        if (auto* dialogue = qobject_cast<QDialog*>(f))
            dialogue->reject();
        else
            f->close();
    };
}

Action Suite(const QList<Action>& actions) {
    return [actions](QWidget* f) {
        QPointer<QWidget> garde(f);
        for (const Action& a : actions) {
            if (!garde || (actif && actif->Echoue())) return;
            a(garde);
        }
    };
}

} // namespace support
