// What the program itself needs beyond the 330 places of the table. New texts come here, whole sentences with markers
// rather than pieces: each language has an order of its own.
#include "dictionary/dictionary_table.h"

namespace {

constexpr DictionaryRow ownRows[] = {
    // keys: by the names that stand on the keyboards of the countries
    {"Shift", "Umschalt", "Maj", "Mayús"},
    {"Alt", "Alt", "Alt", "Alt"},

    // the keys of the on-screen keyboard, as short as they are on real ones
    {"Back", "Rück", "Retour", "Retr"},
    {"Tab", "Tab", "Tab", "Tab"},
    {"Ent", "Enter", "Entrée", "Intro"},
    {"Caps", "Feststell", "Verr Maj", "Bloq Mayús"},
    {"Esc", "Esc", "Échap", "Esc"},
    {"Space", "Leertaste", "Espace", "Espacio"},
    {"PgUp", "Bild auf", "Pg préc", "Re Pág"},
    {"PgDn", "Bild ab", "Pg suiv", "Av Pág"},
    {"End", "Ende", "Fin", "Fin"},
    {"Home", "Pos1", "Début", "Inicio"},
    {"PrtSc", "Druck", "Impr écr", "Impr Pant"},
    {"Ins", "Einfg", "Inser", "Insert"},
    {"Del", "Entf", "Suppr", "Supr"},
    {"Win", "Win", "Win", "Win"},
    {"Menu", "Menü", "Menu", "Menú"},
    {"Num", "Num", "Verr Num", "Bloq Num"},
    {"Scroll", "Rollen", "Arrêt défil", "Bloq Despl"},

    // the box in which keystrokes are edited
    {"The end of this text cannot be read: an opening brace is never closed. Remove it first.",
     "Das Ende dieses Textes ist nicht lesbar: Eine öffnende geschweifte Klammer wird nicht geschlossen. Entfernen Sie "
     "es zuerst.",
     "La fin de ce texte est illisible\u00A0: une accolade ouvrante n'est jamais fermée. Supprimez-la d'abord.",
     "El final de este texto no se puede leer: una llave de apertura no se cierra nunca. Elimínelo primero."},
    {"Every key that you press becomes part of the row. %1 leads out of this box.",
     "Jede Taste, die Sie drücken, wird Teil der Zeile. %1 führt aus diesem Feld heraus.",
     "Chaque touche que vous frappez fait partie de la ligne. %1 permet de quitter ce champ.",
     "Cada tecla que pulse pasa a formar parte de la fila. %1 permite salir de este campo."},
    {"On-screen keyboard", "Bildschirmtastatur", "Clavier visuel", "Teclado en pantalla"},

    // boxes
    {"OK", "OK", "OK", "Aceptar"},
    {"Job \"%1\" already exists", "Die Aufgabe \"%1\" ist bereits vorhanden", "La tâche \"%1\" existe déjà",
     "La tarea \"%1\" ya existe"},
    {"File \"%1\" already exists", "Die Datei \"%1\" ist bereits vorhanden", "Le fichier \"%1\" existe déjà",
     "El archivo \"%1\" ya existe"},
    {"A name cannot contain tabs, line breaks or any of these characters:",
     "Ein Name darf keine Tabulatoren, Zeilenumbrüche und keines dieser Zeichen enthalten:",
     "Un nom ne peut contenir ni tabulation, ni saut de ligne, ni aucun de ces caractères\u00A0:",
     "Un nombre no puede contener tabulaciones, saltos de línea ni ninguno de estos caracteres:"},
    {"Windows keeps the name '%1' for one of its devices.",
     "Windows hat den Namen '%1' für eines seiner Geräte reserviert.",
     "Windows réserve le nom '%1' à l'un de ses périphériques.",
     "Windows reserva el nombre '%1' para uno de sus dispositivos."},
    {"A name cannot end with a dot or a blank.", "Ein Name darf nicht mit einem Punkt oder Leerzeichen enden.",
     "Un nom ne peut pas se terminer par un point ou une espace.",
     "Un nombre no puede terminar en punto ni en espacio."},
    {"The name is too long for a file in this folder.", "Der Name ist zu lang für eine Datei in diesem Ordner.",
     "Le nom est trop long pour un fichier dans ce dossier.",
     "El nombre es demasiado largo para un archivo de esta carpeta."},
    {"The recording is not saved yet. Do you want to save it?",
     "Die Aufnahme ist noch nicht gespeichert. Möchten Sie sie speichern?",
     "L'enregistrement n'est pas encore sauvegardé. Voulez-vous le sauvegarder\u00A0?",
     "La grabación aún no está guardada. ¿Desea guardarla?"},
    {"The job '%1' is open in the editor. Please close it first.",
     "Die Aufgabe '%1' ist im Editor geöffnet. Bitte schließen Sie sie zuerst.",
     "La tâche '%1' est ouverte dans l'éditeur. Veuillez d'abord la fermer.",
     "La tarea '%1' está abierta en el editor. Ciérrela primero."},
    {"A job cannot be edited while a recording or another job is under way.",
     "Eine Aufgabe kann nicht bearbeitet werden, während eine Aufnahme oder eine andere Aufgabe läuft.",
     "Une tâche ne peut pas être modifiée pendant un enregistrement ou l'exécution d'une autre tâche.",
     "Una tarea no se puede editar durante una grabación o mientras se ejecuta otra tarea."},
    {"The file '%1' has been changed since it was opened here.",
     "Die Datei '%1' wurde geändert, seit sie hier geöffnet wurde.",
     "Le fichier '%1' a été modifié depuis son ouverture ici.",
     "El archivo '%1' se ha modificado desde que se abrió aquí."},
    {"A changed job is being saved.", "Eine geänderte Aufgabe wird gespeichert.",
     "Une tâche modifiée est en cours de sauvegarde.", "Se está guardando una tarea modificada."},
    {"A recording is being saved.", "Eine Aufnahme wird gespeichert.", "Un enregistrement est en cours de sauvegarde.",
     "Se está guardando una grabación."},
    {"There is no memory left to go on recording. What was recorded until now can be saved.",
     "Zum Weiteraufnehmen fehlt der Speicher. Was bisher aufgenommen wurde, kann gespeichert werden.",
     "Il n'y a plus assez de mémoire pour continuer l'enregistrement. Ce qui a été enregistré jusqu'ici peut être "
     "sauvegardé.",
     "No queda memoria para seguir grabando. Lo grabado hasta ahora se puede guardar."},
    {"What was recorded is saved as '%1'.", "Das Aufgenommene ist als '%1' gespeichert.",
     "L'enregistrement est sauvegardé sous '%1'.", "Lo grabado está guardado como '%1'."},
    {"Scheduled items deleted", "Geplante Aufgaben gelöscht", "Tâches planifiées supprimées",
     "Tareas programadas eliminadas"},
    {"Select job on the list of jobs first.", "Wählen Sie zuerst eine Aufgabe in der Aufgabenliste aus.",
     "Choisissez d'abord une tâche dans la liste des tâches.", "Seleccione primero una tarea en la lista de tareas."},
    {"Select job first", "Zuerst eine Aufgabe auswählen", "Choisir d'abord une tâche", "Seleccionar primero una tarea"},
    {"You must select a key from 'A' to 'Z'", "Bitte wählen Sie eine Taste von 'A' bis 'Z'",
     "Vous devez choisir une touche de 'A' à 'Z'", "Debe seleccionar una tecla de la 'A' a la 'Z'"},

    // job page
    {"Click  to start executing job '%1'", "Klicken Sie, um die Aufgabe '%1' zu starten",
     "Cliquez pour lancer la tâche '%1'", "Haga clic para iniciar la tarea '%1'"},
    {"Click  to edit job using job editor '%1'", "Klicken Sie, um die Aufgabe '%1' im Aufgabeneditor zu bearbeiten",
     "Cliquez pour modifier la tâche '%1' dans l'éditeur de tâches",
     "Haga clic para editar la tarea '%1' en el editor de tareas"},
    {"Click to schedule job '%1'", "Klicken Sie, um die Aufgabe '%1' zu planen", "Cliquez pour planifier la tâche '%1'",
     "Haga clic para programar la tarea '%1'"},
    {"&Run", "&Starten", "&Lancer", "&Iniciar"},
    {"&Edit", "&Bearbeiten", "&Modifier", "&Editar"},
    {"&Schedule", "&Planen", "&Planifier", "&Programar"},
    {"&Convert job to .exe file", "Aufgabe in &EXE-Datei umwandeln", "&Convertir la tâche en fichier .exe",
     "&Convertir la tarea en archivo .exe"},
    {"Create S&hortcut on Desktop", "&Verknüpfung auf dem Desktop erstellen", "Créer un &raccourci sur le Bureau",
     "Crear &acceso directo en el escritorio"},
    {"&Delete job", "Aufgabe &löschen", "&Supprimer la tâche", "Eli&minar tarea"},
    {"Scheduled Jobs", "Geplante Aufgaben", "Tâches planifiées", "Tareas programadas"},

    // the job editor; the letters are shared out among all that is seen together
    {"&File", "&Datei", "&Fichier", "Archi&vo"},
    {"&Job", "&Aufgabe", "&Tâche", "&Tarea"},
    {"&Undo", "&Rückgängig", "A&nnuler", "De&shacer"},
    {"Red&o", "&Wiederholen", "Réta&blir", "Re&hacer"},
    {"Select all", "Alles auswählen", "Tout sélectionner", "Seleccionar todo"},
    {"&Close", "&Schließen", "F&ermer", "Cerr&ar"},
    {"Run fro&m here", "Ab &hier starten", "&Lancer d'ici", "Ejecutar desde a&quí"},
    {"Run onl&y this", "&Nur dies starten", "Lancer ce&ci seul", "E&jecutar solo esto"},
    {"Save the job", "Die Aufgabe speichern", "Sauvegarder la tâche", "Guardar la tarea"},
    {"Save the job under another name", "Die Aufgabe unter einem anderen Namen speichern",
     "Sauvegarder la tâche sous un autre nom", "Guardar la tarea con otro nombre"},
    {"Take the last change back", "Die letzte Änderung zurücknehmen", "Annuler la dernière modification",
     "Deshacer el último cambio"},
    {"Make the change again that was taken back", "Die zurückgenommene Änderung wiederherstellen",
     "Rétablir la modification annulée", "Rehacer el cambio deshecho"},
    {"Delete the selected rows", "Die ausgewählten Zeilen löschen", "Supprimer les lignes sélectionnées",
     "Eliminar las filas seleccionadas"},
    {"Close the editor", "Den Editor schließen", "Fermer l'éditeur", "Cerrar el editor"},
    {"Record a piece and put it in above the selected row",
     "Ein Stück aufnehmen und oberhalb der ausgewählten Zeile einfügen",
     "Enregistrer un morceau et l'insérer au-dessus de la ligne sélectionnée",
     "Grabar un fragmento e insertarlo encima de la fila seleccionada"},
    {"Record a piece and put it in below the selected row",
     "Ein Stück aufnehmen und unterhalb der ausgewählten Zeile einfügen",
     "Enregistrer un morceau et l'insérer en dessous de la ligne sélectionnée",
     "Grabar un fragmento e insertarlo debajo de la fila seleccionada"},
    {"Run the job from the selected row to its end", "Die Aufgabe ab der ausgewählten Zeile bis zum Ende ausführen",
     "Exécuter la tâche de la ligne sélectionnée jusqu'à la fin",
     "Ejecutar la tarea desde la fila seleccionada hasta el final"},
    {"Run the selected rows alone", "Nur die ausgewählten Zeilen ausführen",
     "Exécuter uniquement les lignes sélectionnées", "Ejecutar solo las filas seleccionadas"},
    {"Rows of the job", "Zeilen der Aufgabe", "Lignes de la tâche", "Filas de la tarea"},
    {"Delay in milliseconds", "Verzögerung in Millisekunden", "Délai en millisecondes", "Retardo en milisegundos"},
    {"Duration in milliseconds", "Dauer in Millisekunden", "Durée en millisecondes", "Duración en milisegundos"},
    {"Seconds to wait for the window", "Sekunden, die auf das Fenster gewartet wird",
     "Secondes d'attente de la fenêtre", "Segundos de espera de la ventana"},
    {"Keystrokes as plain text", "Tastenanschläge als reiner Text", "Frappes en texte brut",
     "Pulsaciones como texto sin formato"},
    {"First event", "Erstes Ereignis", "Premier événement", "Primer evento"},
    {"Last event", "Letztes Ereignis", "Dernier événement", "Último evento"},

    // notification area
    {"&Hide Tessarine", "Tessarine &ausblenden", "&Masquer Tessarine", "&Ocultar Tessarine"},
    {"&Show Tessarine", "Tessarine &einblenden", "&Afficher Tessarine", "&Mostrar Tessarine"},
    {"Record &New (Ctrl+Shift+N)", "&Neue Aufnahme (Strg+Umschalt+N)", "&Nouvel enregistrement (Ctrl+Maj+N)",
     "&Nueva grabación (Ctrl+Mayús+N)"},
    {"Tessarine goes on running in the notification area. Double-click its icon to open it again.",
     "Tessarine läuft im Infobereich weiter. Doppelklicken Sie auf das Symbol, um das Fenster wieder zu öffnen.",
     "Tessarine continue de fonctionner dans la zone de notification. Double-cliquez sur son icône pour rouvrir la "
     "fenêtre.",
     "Tessarine sigue funcionando en el área de notificación. Haga doble clic en su icono para volver a abrirlo."},

    // recording
    {"Select application to run", "Auszuführendes Programm wählen", "Choisir le programme à lancer",
     "Seleccionar el programa que se ejecutará"},
    // Before the name of the key no blank stands in English: the box has always come out so.
    {"To stop recording press%1 key", "Zum Beenden der Aufnahme drücken Sie die Taste %1",
     "Pour arrêter l'enregistrement, appuyez sur la touche %1", "Para detener la grabación, pulse la tecla %1"},
    {"To stop recording press %1", "Zum Beenden der Aufnahme drücken Sie %1",
     "Pour arrêter l'enregistrement, appuyez sur %1", "Para detener la grabación, pulse %1"},
    {"%1 to stop", "Zum Beenden %1 drücken", "Appuyez sur %1 pour arrêter", "Pulse %1 para detener"},
    {"%1 to resume", "Zum Fortfahren \"%1\" klicken", "Cliquez sur \"%1\" pour continuer",
     "Haga clic en \"%1\" para continuar"},
    {"Some actions may be missing. Please check the recording.",
     "Einige Aktionen fehlen möglicherweise. Bitte prüfen Sie die Aufnahme.",
     "Des actions manquent peut-être. Veuillez vérifier l'enregistrement.",
     "Puede que falten acciones. Compruebe la grabación."},

    // a run
    {"Execution of job '%1' failed", "Die Ausführung der Aufgabe '%1' ist fehlgeschlagen",
     "L'exécution de la tâche '%1' a échoué", "La ejecución de la tarea '%1' ha fallado"},
    {"Execution of job failed", "Die Ausführung der Aufgabe ist fehlgeschlagen", "L'exécution de la tâche a échoué",
     "La ejecución de la tarea ha fallado"},
    {"The window '%1' belongs to a program that runs as administrator, and Windows keeps input from it. Start "
     "Tessarine as administrator and run the job again.",
     "Das Fenster '%1' gehört zu einem Programm, das als Administrator läuft, und Windows lässt keine Eingaben zu ihm "
     "durch. Starten Sie Tessarine als Administrator und führen Sie die Aufgabe noch einmal aus.",
     "La fenêtre '%1' appartient à un programme exécuté en tant qu'administrateur, et Windows ne lui transmet aucune "
     "saisie. Démarrez Tessarine en tant qu'administrateur et relancez la tâche.",
     "La ventana '%1' pertenece a un programa que se ejecuta como administrador, y Windows no le deja llegar ninguna "
     "entrada. Inicie Tessarine como administrador y vuelva a ejecutar la tarea."},
    {"The desktop cannot be reached: the computer is locked, or Windows asks a question that only you can answer. Run "
     "the job again after that.",
     "Der Desktop ist nicht erreichbar: Der Computer ist gesperrt, oder Windows stellt eine Frage, die nur Sie "
     "beantworten können. Führen Sie die Aufgabe danach noch einmal aus.",
     "Le Bureau est inaccessible\u00A0: l'ordinateur est verrouillé, ou Windows pose une question à laquelle vous seul "
     "pouvez répondre. Relancez la tâche ensuite.",
     "No se puede acceder al escritorio: el equipo está bloqueado, o Windows hace una pregunta que solo usted puede "
     "responder. Después vuelva a ejecutar la tarea."},
    {"Another program is playing a job. Please try again when it has ended.",
     "Ein anderes Programm spielt gerade eine Aufgabe ab. Bitte versuchen Sie es noch einmal, wenn sie beendet ist.",
     "Un autre programme est en train de rejouer une tâche. Veuillez réessayer lorsqu'elle sera terminée.",
     "Otro programa está reproduciendo una tarea. Vuelva a intentarlo cuando haya terminado."},
    {"There is nothing to play: the job is empty.", "Es gibt nichts abzuspielen: Die Aufgabe ist leer.",
     "Il n'y a rien à rejouer\u00A0: la tâche est vide.", "No hay nada que reproducir: la tarea está vacía."},

    // what a screen reader says of controls without a caption
    {"Replay speed in percent", "Wiedergabegeschwindigkeit in Prozent", "Vitesse de rejeu en pourcentage",
     "Velocidad de reproducción en porcentaje"},
    {"Number of repetitions", "Anzahl der Wiederholungen", "Nombre de répétitions", "Número de repeticiones"},
    {"Hotkey letter", "Buchstabe des Tastenkürzels", "Lettre du raccourci clavier", "Letra del atajo de teclado"},
    {"Safety level", "Sicherheitsstufe", "Niveau de sécurité", "Nivel de seguridad"},
    {"Job name", "Name der Aufgabe", "Nom de la tâche", "Nombre de la tarea"},
    {"Countdown period", "Dauer des Countdowns", "Durée du compte à rebours", "Duración de la cuenta atrás"},

    // the Options and About pages, and the update check
    {"The folder '%1' cannot be opened.", "Der Ordner '%1' kann nicht geöffnet werden.",
     "Impossible d'ouvrir le dossier '%1'.", "No se puede abrir la carpeta '%1'."},
    {"The web page '%1' cannot be opened.", "Die Webseite '%1' kann nicht geöffnet werden.",
     "Impossible d'ouvrir la page web '%1'.", "No se puede abrir la página web '%1'."},
    {"The help is not installed: there is no file '%1'.",
     "Die Hilfe ist nicht installiert: Die Datei '%1' gibt es nicht.",
     "L'aide n'est pas installée\u00A0: le fichier '%1' n'existe pas.",
     "La ayuda no está instalada: no existe el archivo '%1'."},
    {"The help file '%1' cannot be opened.", "Die Hilfedatei '%1' kann nicht geöffnet werden.",
     "Impossible d'ouvrir le fichier d'aide '%1'.", "No se puede abrir el archivo de ayuda '%1'."},
    {"No web address is set up for this copy of Tessarine.",
     "Für diese Kopie von Tessarine ist keine Webadresse eingerichtet.",
     "Aucune adresse web n'est configurée pour cette copie de Tessarine.",
     "No hay ninguna dirección web configurada para esta copia de Tessarine."},
    {"No update server is set up for this copy of Tessarine.",
     "Für diese Kopie von Tessarine ist kein Updateserver eingerichtet.",
     "Aucun serveur de mise à jour n'est configuré pour cette copie de Tessarine.",
     "No hay ningún servidor de actualizaciones configurado para esta copia de Tessarine."},
    {"No internet connection detected", "Keine Internetverbindung gefunden", "Aucune connexion Internet détectée",
     "No se ha detectado ninguna conexión a Internet"},
    {"No connection", "Keine Verbindung", "Pas de connexion", "Sin conexión"},
    {"An Error occured while trying to collect data", "Beim Abrufen der Daten ist ein Fehler aufgetreten",
     "Une erreur s'est produite lors de la collecte des données", "Se ha producido un error al obtener los datos"},
    {"Version %1 is available", "Version %1 ist verfügbar", "La version %1 est disponible",
     "La versión %1 está disponible"},
    {"New version of Tessarine is available: %1", "Eine neue Version von Tessarine ist verfügbar: %1",
     "Une nouvelle version de Tessarine est disponible\u00A0: %1", "Hay disponible una nueva versión de Tessarine: %1"},
    {"Click OK to open Tessarine Customer Care web page where you can update to latest version.",
     "Klicken Sie auf OK, um die Webseite des Tessarine-Kundendienstes zu öffnen, auf der Sie die neueste Version "
     "erhalten.",
     "Cliquez sur OK pour ouvrir la page web du service clientèle de Tessarine, où vous trouverez la dernière version.",
     "Haga clic en Aceptar para abrir la página web de atención al cliente de Tessarine, donde puede actualizar a la "
     "última versión."},

    // a second start
    {"Tessarine is running already, but does not answer. Please try again in a moment.",
     "Tessarine läuft bereits, antwortet aber nicht. Bitte versuchen Sie es gleich noch einmal.",
     "Tessarine est déjà lancé, mais ne répond pas. Veuillez réessayer dans un instant.",
     "Tessarine ya se está ejecutando, pero no responde. Inténtelo de nuevo dentro de un momento."},

    // files that are in use, and what is kept
    {"The file '%1' is in use by another program. Please try again in a moment.",
     "Die Datei '%1' wird gerade von einem anderen Programm verwendet. Bitte versuchen Sie es gleich noch einmal.",
     "Le fichier '%1' est utilisé par un autre programme. Veuillez réessayer dans un instant.",
     "Otro programa está usando el archivo '%1'. Inténtelo de nuevo dentro de un momento."},
    {"In use by another program", "Wird von einem anderen Programm verwendet", "Utilisé par un autre programme",
     "En uso por otro programa"},
    {"Your settings are in use by another program and cannot be read. Please close it and press OK to try again. If "
     "they still cannot be read then, Tessarine starts with default settings, and the old ones are kept under another "
     "name.",
     "Ihre Einstellungen werden von einem anderen Programm verwendet und können nicht gelesen werden. Bitte schließen "
     "Sie es und klicken Sie auf OK, um es noch einmal zu versuchen. Gelingt es dann immer noch nicht, startet "
     "Tessarine mit Standardwerten, und die alten Einstellungen bleiben unter einem anderen Namen erhalten.",
     "Vos paramètres sont utilisés par un autre programme et ne peuvent pas être lus. Veuillez le fermer et cliquer "
     "sur OK pour réessayer. S'ils restent illisibles, Tessarine démarre avec les paramètres par défaut, et les "
     "anciens sont conservés sous un autre nom.",
     "Otro programa está usando su configuración y no se puede leer. Ciérrelo y haga clic en Aceptar para intentarlo "
     "de nuevo. Si sigue sin poder leerse, Tessarine se inicia con la configuración predeterminada, y la anterior se "
     "conserva con otro nombre."},
    {"Your settings cannot be read. They are reset to default.",
     "Ihre Einstellungen können nicht gelesen werden. Sie werden auf die Standardwerte zurückgesetzt.",
     "Vos paramètres ne peuvent pas être lus. Ils sont remis à leurs valeurs par défaut.",
     "No se puede leer su configuración. Se restablecen los valores predeterminados."},
    {"The old file is kept as '%1'.", "Die alte Datei bleibt als '%1' erhalten.",
     "L'ancien fichier est conservé sous le nom '%1'.", "El archivo anterior se conserva como '%1'."},
    {"The old file will be kept under another name.", "Die alte Datei bleibt unter einem anderen Namen erhalten.",
     "L'ancien fichier sera conservé sous un autre nom.", "El archivo anterior se conservará con otro nombre."},
    {"Your jobs and settings have been moved, but these files could not be deleted at the old location",
     "Ihre Aufgaben und Einstellungen wurden verschoben, aber diese Dateien konnten am alten Speicherort nicht "
     "gelöscht werden",
     "Vos tâches et paramètres ont été déplacés, mais ces fichiers n'ont pas pu être supprimés à l'ancien emplacement",
     "Sus tareas y su configuración se han movido, pero no se han podido eliminar estos archivos de la ubicación "
     "anterior"},
    {"The new location cannot be stored in the registry.",
     "Der neue Speicherort kann nicht in der Registrierung gespeichert werden.",
     "Le nouvel emplacement ne peut pas être inscrit dans le Registre.",
     "La nueva ubicación no se puede guardar en el Registro."},
    {"More than one window is called '%1', and none of them stands where it was recorded.",
     "Mehrere Fenster heißen '%1', und keines davon steht dort, wo es aufgenommen wurde.",
     "Plusieurs fenêtres s'appellent '%1', et aucune ne se trouve là où elle a été enregistrée.",
     "Hay más de una ventana llamada '%1' y ninguna está donde se grabó."},
    {"The time that the run was given is over", "Die Zeit, die für den Ablauf vorgesehen war, ist um",
     "Le temps accordé à l'exécution est écoulé", "Se ha agotado el tiempo concedido a la ejecución"},
};

}  // namespace

std::span<const DictionaryRow> OwnRows() {
    return ownRows;
}
