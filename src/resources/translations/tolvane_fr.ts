<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>Library</name>
    <message>
        <source>main_title</source>
        <extracomment>Greeting at the top of the home screen. An icon of a waving hand follows directly, so the text ends with a space.</extracomment>
        <translation>Bonjour&#xa0;! </translation>
    </message>
    <message>
        <source>main_subtitle</source>
        <extracomment>Second line of the home screen, beneath the greeting.</extracomment>
        <translation>Comment pouvons-nous vous aider&#xa0;?</translation>
    </message>
    <message>
        <source>ticket_list_your_messages</source>
        <extracomment>Heading above the list of the customer's conversations.</extracomment>
        <translation>Vos messages</translation>
    </message>
    <message>
        <source>main_sender_customer_name</source>
        <extracomment>The sender's name on messages of the customer. Stands alone, so it starts with a capital letter.</extracomment>
        <translation>Vous</translation>
    </message>
    <message>
        <source>timeago_invalid</source>
        <extracomment>Shown instead of the age of a message if its date cannot be parsed.</extracomment>
        <translation>Date inconnue</translation>
    </message>
    <message>
        <source>timeago_now</source>
        <extracomment>Age of a message: less than a minute.</extracomment>
        <translation>À l’instant</translation>
    </message>
    <message>
        <source>timeago_more_than_a_week</source>
        <extracomment>Age of a message: a week or more.</extracomment>
        <translation>Il y a plus d’une semaine</translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_minutes</source>
        <extracomment>Age of a message: 1 to 59 minutes. Stands alone, so it starts like a sentence. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>Il y a %Ln minute</numerusform>
            <numerusform>Il y a %Ln minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_hours</source>
        <extracomment>Age of a message: 1 to 24 hours. Stands alone, so it starts like a sentence. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>Il y a %Ln heure</numerusform>
            <numerusform>Il y a %Ln heures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_days</source>
        <extracomment>Age of a message: 1 to 6 days. Stands alone, so it starts like a sentence. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>Il y a %Ln jour</numerusform>
            <numerusform>Il y a %Ln jours</numerusform>
        </translation>
    </message>
    <message>
        <source>host_You</source>
        <extracomment>On the customer's own messages; the host may translate it.</extracomment>
        <translation>Vous</translation>
    </message>
    <message>
        <source>host_Back</source>
        <extracomment>The button that leaves a conversation or a picture; the host may translate it.</extracomment>
        <translation>Retour</translation>
    </message>
    <message>
        <source>host_Image</source>
        <extracomment>The title of a picture that is shared; the host may translate it.</extracomment>
        <translation>Image</translation>
    </message>
    <message>
        <source>host_No conversations yet</source>
        <extracomment>On the home screen, before the first conversation; the host may translate it.</extracomment>
        <translation>Aucune conversation pour le moment</translation>
    </message>
    <message>
        <source>host_Start a new conversation to get help</source>
        <extracomment>Beneath the line that there are no conversations yet; the host may translate it.</extracomment>
        <translation>Démarrez une nouvelle conversation pour obtenir de l’aide</translation>
    </message>
    <message>
        <source>host_Something went wrong</source>
        <extracomment>Where loading has failed; the host may translate it.</extracomment>
        <translation>Une erreur s’est produite</translation>
    </message>
    <message>
        <source>ticket_ai_agent</source>
        <extracomment>The sender of a message of the machine, which has no name; the same words as where it is typing.</extracomment>
        <translation>Agent IA</translation>
    </message>
    <message>
        <source>ticket_closed</source>
        <extracomment>In the last row of a conversation that support has closed, after an icon of a lock. The customer can still write.</extracomment>
        <translation>Cette conversation est terminée</translation>
    </message>
    <message>
        <source>ticket_ai_is_typing</source>
        <extracomment>Shown while the AI agent prepares an answer. Animated dots may follow, so there is no full stop.</extracomment>
        <translation>L’agent IA est en train d’écrire</translation>
    </message>
    <message>
        <source>accessibility_close</source>
        <extracomment>Read aloud: the button that closes the messenger.</extracomment>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>help_button</source>
        <extracomment>On a button of the host that opens the messenger. Read aloud with the number of unread conversations after it.</extracomment>
        <translation>Aide</translation>
    </message>
    <message>
        <source>accessibility_unread</source>
        <extracomment>Read aloud: the dot on a conversation with messages that the customer has not seen.</extracomment>
        <translation>Non lue</translation>
    </message>
    <message>
        <source>accessibility_loading</source>
        <extracomment>Read aloud: the progress indicator.</extracomment>
        <translation>Chargement</translation>
    </message>
    <message>
        <source>ticket_new_discussion</source>
        <extracomment>Title of a conversation that the customer is about to begin.</extracomment>
        <translation>Nouvelle conversation</translation>
    </message>
    <message>
        <source>ticket_support</source>
        <extracomment>Shown instead of the agent's name if that is not known. Also the title of a conversation.</extracomment>
        <translation>Assistance</translation>
    </message>
    <message>
        <source>ticket_support_team</source>
        <extracomment>Beneath the title of a conversation, while the opening hours are not known.</extracomment>
        <translation>Équipe d’assistance</translation>
    </message>
    <message>
        <source>ticket_new_hint</source>
        <extracomment>Shown instead of the messages if the customer has not written any yet.</extracomment>
        <translation>Écrivez votre premier message. Nous sommes là pour vous aider.</translation>
    </message>
    <message>
        <source>ticket_cs_available</source>
        <extracomment>Beneath the title of a conversation: support agents are available now.</extracomment>
        <translation>Disponible</translation>
    </message>
    <message>
        <source>ticket_cs_not_available</source>
        <extracomment>Beneath the title of a conversation: nobody is available, and it is not known when somebody will be.</extracomment>
        <translation>Indisponible</translation>
    </message>
    <message>
        <source>ticket_cs_available_day</source>
        <extracomment>Beneath the title of a conversation: nobody is available, but somebody will be within a day.</extracomment>
        <translation>De retour d’ici un jour</translation>
    </message>
    <message>
        <source>ticket_cs_available_days</source>
        <extracomment>Beneath the title of a conversation: nobody is available, but somebody will be within some days.</extracomment>
        <translation>De retour dans quelques jours</translation>
    </message>
    <message numerus="yes">
        <source>%lld ticket_cs_available_hours</source>
        <extracomment>Beneath the title of a conversation: nobody is available, but somebody will be in 1 to 7 hours. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>De retour dans %Ln heure</numerusform>
            <numerusform>De retour dans %Ln heures</numerusform>
        </translation>
    </message>
    <message>
        <source>composer_placeholder</source>
        <extracomment>Placeholder of the empty message field.</extracomment>
        <translation>Écrire un message</translation>
    </message>
    <message>
        <source>composer_drop_hint</source>
        <extracomment>Over the conversation while pictures are dragged across it.</extracomment>
        <translation>Déposez les images ici</translation>
    </message>
    <message>
        <source>composer_attach_files</source>
        <extracomment>In a menu for attachments: opens the system's dialog for files.</extracomment>
        <translation>Choisir des images…</translation>
    </message>
    <message>
        <source>composer_attach_window</source>
        <extracomment>In the same menu: attaches a picture of the application's window, without the messenger.</extracomment>
        <translation>Joindre une image de cette fenêtre</translation>
    </message>
    <message>
        <source>edit_undo</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>edit_cut</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>Couper</translation>
    </message>
    <message>
        <source>edit_copy</source>
        <extracomment>In context menus: copies text.</extracomment>
        <translation>Copier</translation>
    </message>
    <message>
        <source>edit_paste</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>Coller</translation>
    </message>
    <message>
        <source>edit_select_all</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>accessibility_newest</source>
        <extracomment>Read aloud, and a tooltip: a button that scrolls to the end of the conversation.</extracomment>
        <translation>Aller au message le plus récent</translation>
    </message>
    <message>
        <source>composer_only_pictures</source>
        <extracomment>Over the conversation for a few seconds: a file that the customer adds is not a picture.</extracomment>
        <translation>Seules les images peuvent être envoyées</translation>
    </message>
    <message>
        <source>composer_long_lines</source>
        <extracomment>Shown over the conversation for some seconds, when a pasted text had very long lines, which the editor has divided.</extracomment>
        <translation>Les lignes très longues ont été divisées.</translation>
    </message>
    <message>
        <source>accessibility_previous_picture</source>
        <extracomment>Read aloud: the button in the image viewer that shows the picture before this one.</extracomment>
        <translation>Image précédente</translation>
    </message>
    <message>
        <source>accessibility_next_picture</source>
        <extracomment>Read aloud: the button in the image viewer that shows the picture after this one.</extracomment>
        <translation>Image suivante</translation>
    </message>
    <message>
        <source>accessibility_attach</source>
        <extracomment>Read aloud: the button that lets the customer choose pictures to send along.</extracomment>
        <translation>Joindre des images</translation>
    </message>
    <message>
        <source>accessibility_send</source>
        <extracomment>Read aloud: the button that sends the message.</extracomment>
        <translation>Envoyer</translation>
    </message>
    <message>
        <source>accessibility_sending</source>
        <extracomment>Read aloud: the message is on its way.</extracomment>
        <translation>Envoi en cours</translation>
    </message>
    <message>
        <source>accessibility_remove_attachment</source>
        <extracomment>Read aloud: the button that removes a chosen picture. %1 is its name.</extracomment>
        <translation>Retirer %1</translation>
    </message>
    <message>
        <source>accessibility_attachment</source>
        <extracomment>Read aloud: a picture of a message. %1 is its number, %2 how many there are.</extracomment>
        <translation>Image %1 sur %2</translation>
    </message>
    <message>
        <source>accessibility_picture</source>
        <extracomment>Read aloud: a picture that fills the screen.</extracomment>
        <translation>Image</translation>
    </message>
    <message>
        <source>accessibility_share</source>
        <extracomment>Read aloud: the button that offers to save or copy a picture.</extracomment>
        <translation>Partager</translation>
    </message>
    <message>
        <source>message_copy</source>
        <extracomment>In the context menu of a message: copies the whole text of the message.</extracomment>
        <translation>Copier le message</translation>
    </message>
    <message>
        <source>message_open_link</source>
        <extracomment>In the context menu of a message: opens a link. Its address follows after a colon if the message has several.</extracomment>
        <translation>Ouvrir le lien</translation>
    </message>
    <message>
        <source>message_copy_link</source>
        <extracomment>In the context menu of a message: copies the address of a link.</extracomment>
        <translation>Copier le lien</translation>
    </message>
    <message>
        <source>picture_open</source>
        <extracomment>In the context menu of a picture in a message: shows it in the whole window.</extracomment>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>viewer_save</source>
        <extracomment>Choice in a menu: opens a dialog to save the picture as a file.</extracomment>
        <translation>Enregistrer l’image…</translation>
    </message>
    <message>
        <source>viewer_copy</source>
        <extracomment>Choice in a menu: copies the picture to the clipboard.</extracomment>
        <translation>Copier l’image</translation>
    </message>
    <message>
        <source>viewer_saved</source>
        <extracomment>Confirms that the picture was saved. %1 is the folder or file.</extracomment>
        <translation>Enregistrée dans %1</translation>
    </message>
    <message>
        <source>viewer_copied</source>
        <extracomment>Confirms that the picture is on the clipboard.</extracomment>
        <translation>Copiée</translation>
    </message>
    <message>
        <source>viewer_save_failed</source>
        <extracomment>Reports that the picture could not be saved. %1 is the reason.</extracomment>
        <translation>Enregistrement impossible : %1</translation>
    </message>
    <message>
        <source>viewer_replace</source>
        <extracomment>Question before the picture replaces another file. %1 is the name of the file.</extracomment>
        <translation>« %1 » existe déjà. Voulez-vous le remplacer ?</translation>
    </message>
    <message>
        <source>error_offline</source>
        <extracomment>Beneath "Something went wrong": the device has no network.</extracomment>
        <translation>Il n’y a pas de connexion à Internet.</translation>
    </message>
    <message>
        <source>error_timeout</source>
        <extracomment>Beneath "Something went wrong": no answer came within a minute.</extracomment>
        <translation>Le serveur met trop de temps à répondre.</translation>
    </message>
    <message>
        <source>error_unreachable</source>
        <extracomment>Beneath "Something went wrong": the server cannot be reached, or the connection to it fails.</extracomment>
        <translation>Le serveur est inaccessible.</translation>
    </message>
    <message>
        <source>error_response</source>
        <extracomment>Beneath "Something went wrong": the server has answered with an error, or with something that cannot be read.</extracomment>
        <translation>Le serveur n’a pas répondu comme prévu.</translation>
    </message>
    <message>
        <source>error_retry</source>
        <extracomment>A button that repeats what has failed.</extracomment>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>composer_send_failed</source>
        <extracomment>Above the message editor: the message could not be sent. %1 is the reason, a sentence.</extracomment>
        <translation>Votre message n'a pas été envoyé. %1</translation>
    </message>
    <message>
        <source>ticket_list_stale</source>
        <extracomment>Above the list of conversations: the list could not be loaded again, and is shown as it was before.</extracomment>
        <translation>Pas à jour</translation>
    </message>
    <message>
        <source>ticket_draft</source>
        <extracomment>In the list, before the sender of the last message: the customer has begun a message and not sent it.</extracomment>
        <translation>Brouillon</translation>
    </message>
</context>
</TS>
