#include "reports/Impression.h"

#include "reports/Peintre.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Horloge.h"

#include <QApplication>
#include <QHash>
#include <QPrinter>

namespace rapport {

QString TexteErreurRapport(int code) {
    static const QHash<int, QString> textes = {
        {500, QStringLiteral("(Erreur 500) La mémoire disponible n'est pas suffisante.")},
        {501,
         QStringLiteral("(Erreur 501) Le numéro de requête que vous avez spécifié n'existe pas.")},
        {502, QStringLiteral("(Erreur 502) Le descripteur que vous avez spécifié n'existe pas.")},
        {503, QStringLiteral("(Erreur 503) Une chaine est trop longue pour le tampon alloué.")},
        {504, QStringLiteral("(Erreur 504) L'état que vous avez spécifié ne se trouve pas dans le "
                             "chemin d'accès.")},
        {505, QStringLiteral("(Erreur 505) Vous avez essayé d'imprimer sans préalablement "
                             "spécifier une destination d'impression.")},
        {506, QStringLiteral("(Erreur 506) Pas de description pour cette erreur")},
        {507, QStringLiteral(
                  "(Erreur 507) Le nom de fichier que vous avez spécifié contient une erreur.")},
        {508, QStringLiteral("(Erreur 508) Le numéro de champ que vous avez spécifié n'est pas "
                             "compris dans la plage existante.")},
        {509, QStringLiteral("(Erreur 509) Le programme ne parvient pas à ajouter le nom de champ "
                             "que vous avez spécifié.")},
        {510, QStringLiteral("(Erreur 510) Le programme ne parvient pas à ajouter le nom de "
                             "formule que vous avez spécifié.")},
        {511,
         QStringLiteral("(Erreur 511) L'ordre de tri que vous avez spécifié n'est pas autorisé.")},
        {512, QStringLiteral("(Erreur 512) Le moteur d'impression doit être ouvert pour que "
                             "l'appel se déroule normalement.")},
        {513, QStringLiteral("(Erreur 513) Le gestionnaire d'impression de l'imprimante que vous "
                             "avez spécifiée n'existe pas.")},
        {514, QStringLiteral("(Erreur 514) Le nom du fichier d'exportation que vous avez spécifié "
                             "existe déjà. Vous devez supprimer le fichier t l'exporter de nouveau "
                             "ou spécifier un autre fichier.")},
        {515,
         QStringLiteral("(Erreur 515) Le texte de la formule de remplacement contient une erreur "
                        "de formule. Examinez la syntaxe de la ormule et essayez de nouveau.")},
        {516,
         QStringLiteral(
             "(Erreur 516) La section de groupe que vous avez spécifiée est désormais incorrecte "
             "dans l'état. Par exemple, comme n groupe est basé sur un champ formule, si vous "
             "modifiez la formule, elle ne peut plus servir de base pour le groupe.")},
        {517, QStringLiteral(
                  "(Erreur 517) Une seule application à la fois peut accéder au moteur "
                  "d'impression. Celui-ci est actuellement utilisé par une autre application.")},
        {519, QStringLiteral("(Erreur 519) En l'absence de fenêtre d'impression, votre appel ne "
                             "peut pas se dérouler normalement.")},
        {520,
         QStringLiteral(
             "(Erreur 520) Vous essayez de lancer une requête d'impression qui a déjà été lancée. "
             "Cela peut se produire quand vous lancez une requête d'impression une première fois, "
             "puis une deuxième fois avant que l'impression précédente soit terminée.")},
        {521, QStringLiteral("(Erreur 521) Le champ de résumé spécifié comme champ de tri de "
                             "groupe est incorrect ou n'existe pas.")},
        {522,
         QStringLiteral(
             "(Erreur 522) Les ressources Windows sont insuffisantes pour traiter la fonction.")},
        {523, QStringLiteral(
                  "(Erreur 523) La condition de groupe que vous avez spécifiée est incorrecte.")},
        {524, QStringLiteral("(Erreur 524) Vous avez essayé de lancer l'impression alors que "
                             "Crystal Reports est déjà en train d'imprimer une requête.")},
        {525, QStringLiteral("(Erreur 525) L'état que vous essayez d'ouvrir contient une erreur.")},
        {526, QStringLiteral("(Erreur 526) Vous n'avez pas spécifié d'imprimante par défaut. "
                             "Faites-le à l'aide du Panneau de configuration Windows.")},
        {528, QStringLiteral("(Erreur 528) Vous avez spécifié un numéro de ligne incorrect.")},
        {529, QStringLiteral(
                  "(Erreur 529) Pour exporter l'état vers un fichier ou le trier, le programme a "
                  "besoin d'un espace supérieur à celui disponible sur le disque.")},
        {530, QStringLiteral(
                  "(Erreur 530) Pendant l'exportation vers un fichier, le programme a rencontré un "
                  "autre problème relatif au fichier, outre la saturation du disque.")},
        {531, QStringLiteral("(Erreur 531) Le mot de passe que vous avez spécifié est incorrect.")},
        {532, QStringLiteral("(Erreur 532) La DLL de la base de données est endommagée.")},
        {533,
         QStringLiteral(
             "(Erreur 533) La base de données que vous avez spécifiée contient une erreur. "
             "Vérifiez-la à l'aide de la commande Base de données Vérifier la base de données.")},
        {534, QStringLiteral("(Erreur 534) La DLL de la base de données est endommagée.")},
        {535, QStringLiteral("(Erreur 535) Vous avez essayé de vous connecter à l'aide de "
                             "paramètres de session incomplets ou incorrects.")},
        {537, QStringLiteral("(Erreur 537) La table que vous avez spécifiée est introuvable.")},
        {538, QStringLiteral("(Erreur 538) Erreur interne.")},
        {539, QStringLiteral("(Erreur 539) La date que vous avez spécifiée à l'aide de la commande "
                             "PESetPrintDate est incorrecte. ")},
        {540,
         QStringLiteral(
             "(Erreur 540) La DLL requise par votre appel d'exportation est absente ou périmée.")},
        {542,
         QStringLiteral(
             "(Erreur 542) Vous utilisez le contrôle page précédente dans la fenêtre d'aperçu "
             "avant impression alors que vous vous trouvez déjà à la première page de l'état.")},
        {543,
         QStringLiteral(
             "(Erreur 543) Vous utilisez le contrôle page suivante dans la fenêtre d'aperçu avant "
             "impression alors que vous vous trouvez déjà à la dernière page de l'état.")},
        {544,
         QStringLiteral("(Erreur 544) L'accès au fichier d'état est refusé, probablement parce "
                        "qu'il est utilisé par un autre programme ou un autre utilisateur.")},
        {546, QStringLiteral("(Erreur 546) Le programme ne parvient pas à ouvrir l'état.")},
        {547, QStringLiteral("(Erreur 547) Le champ ligne ou colonne que vous avez spécifié dans "
                             "votre état de table croisée est incorrect.")},
        {548, QStringLiteral("(Erreur 548) Vous essayez d'exécuter un état de table croisée sans "
                             "spécifier de champ résumé.")},
        {999, QStringLiteral("(Erreur 999) Erreur interne.")},
    };
    return textes.value(code);
}

void MessageErreurRapport(int code) {
    ui::Boite(TexteErreurRapport(code), QStringLiteral("Maroval"), ui::Icone::Critique);
}

void AnnoncerImpressionAnnulee() {
    ui::Boite(QStringLiteral("L'impression est annulée."), QStringLiteral("Maroval"),
              ui::Icone::Information);
}

bool ChoixImprimante(QPrinter& imprimante) {
    const bool accepte = ui::ChoisirImprimante(imprimante);
    QApplication::processEvents();
    if (!accepte) AnnoncerImpressionAnnulee();
    return accepte;
}

int ImprimerEtat(const Document& document, const QString& fichierPdf) {
    const QString date = ui::Aujourdhui().toString(QStringLiteral("dd/MM/yyyy"));
    if (!fichierPdf.isEmpty()) {
        if (!EcrirePdf(document, fichierPdf, date).isEmpty()) {
            MessageErreurRapport(ErreurFichier);
            return ErreurFichier;
        }
        return 0;
    }
    QPrinter imprimante(QPrinter::HighResolution);
    imprimante.setDocName(document.titre);
    if (!ChoixImprimante(imprimante)) return -1;
    int pages = 0;
    // Aperçu par défaut : l'utilisateur voit l'état avant de l'envoyer à l'imprimante.
    const bool imprime = ui::Apercu(
        imprimante, [&](QPrinter* p) { pages = Peindre(document, *p, date); }, document.titre);
    if (imprime && pages == 0) {
        MessageErreurRapport(ErreurImprimanteAbsente);
        return ErreurImprimanteAbsente;
    }
    return imprime ? 0 : -1;
}

int ImprimerOuEnregistrer(const Document& document, bool enPdf) {
    QString fichier;
    if (enPdf) {
        fichier = ui::ChoisirFichierEnregistrer(QStringLiteral("Enregistrer l'état en PDF"),
                                                document.titre.toLower() + QStringLiteral(".pdf"),
                                                QStringLiteral("PDF (*.pdf)|*.pdf"));
        if (fichier.isEmpty()) {
            AnnoncerImpressionAnnulee();
            return -1;
        }
    }
    return ImprimerEtat(document, fichier);
}

} // namespace rapport
