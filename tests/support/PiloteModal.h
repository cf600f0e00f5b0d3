#pragma once
// Pilote des fenêtres modales pour les tests d'écrans : il guette la fenêtre modale active
// (QApplication::activeModalWidget) par une minuterie, reconnaît l'étape attendue (un écran
// par son objectName, ou une boîte "Boite" par son texte exact), et lance l'action par
// QTimer::singleShot(0) : une action qui ouvre une boucle modale ne bloque pas le pilote.
// Une étape qui ne vient pas dans le délai fait échouer le pilote, qui ferme alors toutes
// les fenêtres modales ; le test vérifie Reussi() après coup (un QFAIL est impossible
// depuis une minuterie).

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <functional>

class QAbstractButton;
class QWidget;

namespace support {

using Action = std::function<void(QWidget* fenetre)>;

class PiloteModal : public QObject {
    Q_OBJECT
public:
    explicit PiloteModal(int delaiParEtapeMs = 5000, QObject* parent = nullptr);
    ~PiloteModal() override;

    // Attend que la fenêtre modale active ait cet objectName, puis agit sur elle.
    PiloteModal& Attendre(const QString& nomObjet, Action action);
    // Attend une fenêtre visible (modale ou non, "Aide" par exemple) de cet objectName.
    PiloteModal& AttendreFenetre(const QString& nomObjet, Action action);
    // Attend la boîte "Boite" dont le texte est exactement celui-ci et clique le bouton.
    PiloteModal& AttendreBoite(const QString& texte, const QString& bouton);
    PiloteModal& AttendreBoite(const QString& texte, Action action);

    void Demarrer();
    void Arreter();

    // Toutes les étapes vues et leurs actions lancées, sans échec.
    bool Reussi() const;
    bool Echoue() const { return !messageEchec.isEmpty(); }
    QString Echec() const { return messageEchec; }
    // Description des étapes reconnues, dans l'ordre.
    QStringList Vus() const { return vus; }
    int EtapesFaites() const { return etapeCourante; }
    // Pompe les événements jusqu'à la fin des étapes ou un échec.
    bool AttendreFin(int delaiMs = 10000);

    // Échec signalé par une action (bouton introuvable...) : noté, puis tout se ferme.
    void Echouer(const QString& message);
    // Le pilote en marche, s'il y en a un.
    static PiloteModal* Actif();

signals:
    void echec(const QString& message);

private:
    struct Etape {
        enum Genre { Modale, Fenetre, Boite } genre = Modale;
        QString nom;
        QString texte;
        Action action;
        QString Description() const;
    };
    PiloteModal& Ajouter(Etape etape);
    void Guetter();
    QWidget* Chercher(const Etape& etape) const;

    int delai;
    QTimer minuterie;
    QList<Etape> etapes;
    int etapeCourante = 0;
    QElapsedTimer chronoEtape;
    QElapsedTimer chronoReste;
    bool actionEnAttente = false;
    QString messageEchec;
    QStringList vus;
};

// Echec d'une action, au pilote actif (ou en avertissement s'il n'y en a pas).
void SignalerEchec(const QString& message);

// Décrit une fenêtre pour les messages : objectName, et le texte d'une boîte.
QString DecrireFenetre(const QWidget* fenetre);

// Recherches et gestes d'utilisateur, utilisables dans une action ou directement.
QAbstractButton* TrouverBouton(QWidget* racine, const QString& nomOuLibelle);
bool CliquerBouton(QWidget* racine, const QString& nomOuLibelle);
// Tape le texte touche par touche, accents compris.
void TaperCaracteres(QWidget* cible, const QString& texte);
bool TaperTexte(QWidget* racine, const QString& champ, const QString& texte);
bool ChoisirLigneListe(QWidget* racine, const QString& liste, int ligne, bool doubleClic = false);
bool AppuyerTouche(QWidget* racine, Qt::Key cle, const QString& cible = QString());

// Actions toutes faites.
Action Cliquer(const QString& nomOuLibelle);
Action Repondre(const QString& libelleBouton);
Action Taper(const QString& champ, const QString& texte);
Action ChoisirLigne(const QString& liste, int ligne);
Action DoubleCliquerLigne(const QString& liste, int ligne);
Action ChoisirTexte(const QString& liste, const QString& texte);
Action Touche(Qt::Key cle, const QString& cible = QString());
Action Fermer();
Action Suite(const QList<Action>& actions);

} // namespace support
