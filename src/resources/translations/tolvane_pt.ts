<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt">
<context>
    <name>Library</name>
    <message>
        <source>main_title</source>
        <extracomment>Greeting at the top of the home screen. An icon of a waving hand follows directly, so the text ends with a space.</extracomment>
        <translation>Olá! </translation>
    </message>
    <message>
        <source>main_subtitle</source>
        <extracomment>Second line of the home screen, beneath the greeting.</extracomment>
        <translation>Como podemos ajudar?</translation>
    </message>
    <message>
        <source>ticket_list_your_messages</source>
        <extracomment>Heading above the list of the customer's conversations.</extracomment>
        <translation>Suas mensagens</translation>
    </message>
    <message>
        <source>main_sender_customer_name</source>
        <extracomment>The sender's name on messages of the customer. Stands alone, so it starts with a capital letter.</extracomment>
        <translation>Você</translation>
    </message>
    <message>
        <source>timeago_invalid</source>
        <extracomment>Shown instead of the age of a message if its date cannot be parsed.</extracomment>
        <translation>Data desconhecida</translation>
    </message>
    <message>
        <source>timeago_now</source>
        <extracomment>Age of a message: less than a minute.</extracomment>
        <translation>Agora mesmo</translation>
    </message>
    <message>
        <source>timeago_more_than_a_week</source>
        <extracomment>Age of a message: a week or more.</extracomment>
        <translation>Há mais de uma semana</translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_minutes</source>
        <extracomment>Age of a message: 1 to 59 minutes. Stands alone, so it starts like a sentence. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>Há %Ln minuto</numerusform>
            <numerusform>Há %Ln minutos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_hours</source>
        <extracomment>Age of a message: 1 to 24 hours. Stands alone, so it starts like a sentence. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>Há %Ln hora</numerusform>
            <numerusform>Há %Ln horas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_days</source>
        <extracomment>Age of a message: 1 to 6 days. Stands alone, so it starts like a sentence. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>Há %Ln dia</numerusform>
            <numerusform>Há %Ln dias</numerusform>
        </translation>
    </message>
    <message>
        <source>host_You</source>
        <extracomment>On the customer's own messages; the host may translate it.</extracomment>
        <translation>Você</translation>
    </message>
    <message>
        <source>host_Back</source>
        <extracomment>The button that leaves a conversation or a picture; the host may translate it.</extracomment>
        <translation>Voltar</translation>
    </message>
    <message>
        <source>host_Image</source>
        <extracomment>The title of a picture that is shared; the host may translate it.</extracomment>
        <translation>Imagem</translation>
    </message>
    <message>
        <source>host_No conversations yet</source>
        <extracomment>On the home screen, before the first conversation; the host may translate it.</extracomment>
        <translation>Ainda não há conversas</translation>
    </message>
    <message>
        <source>host_Start a new conversation to get help</source>
        <extracomment>Beneath the line that there are no conversations yet; the host may translate it.</extracomment>
        <translation>Inicie uma nova conversa para obter ajuda</translation>
    </message>
    <message>
        <source>host_Something went wrong</source>
        <extracomment>Where loading has failed; the host may translate it.</extracomment>
        <translation>Algo deu errado</translation>
    </message>
    <message>
        <source>ticket_ai_agent</source>
        <extracomment>The sender of a message of the machine, which has no name; the same words as where it is typing.</extracomment>
        <translation>Agente de IA</translation>
    </message>
    <message>
        <source>ticket_closed</source>
        <extracomment>In the last row of a conversation that support has closed, after an icon of a lock. The customer can still write.</extracomment>
        <translation>Esta conversa foi encerrada</translation>
    </message>
    <message>
        <source>ticket_ai_is_typing</source>
        <extracomment>Shown while the AI agent prepares an answer. Animated dots may follow, so there is no full stop.</extracomment>
        <translation>O agente de IA está digitando</translation>
    </message>
    <message>
        <source>accessibility_close</source>
        <extracomment>Read aloud: the button that closes the messenger.</extracomment>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>help_button</source>
        <extracomment>On a button of the host that opens the messenger. Read aloud with the number of unread conversations after it.</extracomment>
        <translation>Ajuda</translation>
    </message>
    <message>
        <source>accessibility_unread</source>
        <extracomment>Read aloud: the dot on a conversation with messages that the customer has not seen.</extracomment>
        <translation>Não lida</translation>
    </message>
    <message>
        <source>accessibility_loading</source>
        <extracomment>Read aloud: the progress indicator.</extracomment>
        <translation>Carregando</translation>
    </message>
    <message>
        <source>ticket_new_discussion</source>
        <extracomment>Title of a conversation that the customer is about to begin.</extracomment>
        <translation>Nova conversa</translation>
    </message>
    <message>
        <source>ticket_support</source>
        <extracomment>Shown instead of the agent's name if that is not known. Also the title of a conversation.</extracomment>
        <translation>Suporte</translation>
    </message>
    <message>
        <source>ticket_support_team</source>
        <extracomment>Beneath the title of a conversation, while the opening hours are not known.</extracomment>
        <translation>Equipe de suporte</translation>
    </message>
    <message>
        <source>ticket_new_hint</source>
        <extracomment>Shown instead of the messages if the customer has not written any yet.</extracomment>
        <translation>Escreva a sua primeira mensagem. Estamos aqui para ajudar.</translation>
    </message>
    <message>
        <source>ticket_cs_available</source>
        <extracomment>Beneath the title of a conversation: support agents are available now.</extracomment>
        <translation>Disponível agora</translation>
    </message>
    <message>
        <source>ticket_cs_not_available</source>
        <extracomment>Beneath the title of a conversation: nobody is available, and it is not known when somebody will be.</extracomment>
        <translation>Indisponível</translation>
    </message>
    <message>
        <source>ticket_cs_available_day</source>
        <extracomment>Beneath the title of a conversation: nobody is available, but somebody will be within a day.</extracomment>
        <translation>De volta dentro de um dia</translation>
    </message>
    <message>
        <source>ticket_cs_available_days</source>
        <extracomment>Beneath the title of a conversation: nobody is available, but somebody will be within some days.</extracomment>
        <translation>De volta dentro de alguns dias</translation>
    </message>
    <message numerus="yes">
        <source>%lld ticket_cs_available_hours</source>
        <extracomment>Beneath the title of a conversation: nobody is available, but somebody will be in 1 to 7 hours. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>De volta em %Ln hora</numerusform>
            <numerusform>De volta em %Ln horas</numerusform>
        </translation>
    </message>
    <message>
        <source>composer_placeholder</source>
        <extracomment>Placeholder of the empty message field.</extracomment>
        <translation>Escreva uma mensagem</translation>
    </message>
    <message>
        <source>composer_drop_hint</source>
        <extracomment>Over the conversation while pictures are dragged across it.</extracomment>
        <translation>Solte as imagens aqui</translation>
    </message>
    <message>
        <source>composer_attach_files</source>
        <extracomment>In a menu for attachments: opens the system's dialog for files.</extracomment>
        <translation>Escolher imagens…</translation>
    </message>
    <message>
        <source>composer_attach_window</source>
        <extracomment>In the same menu: attaches a picture of the application's window, without the messenger.</extracomment>
        <translation>Anexar uma imagem desta janela</translation>
    </message>
    <message>
        <source>edit_undo</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>edit_cut</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>Cortar</translation>
    </message>
    <message>
        <source>edit_copy</source>
        <extracomment>In context menus: copies text.</extracomment>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>edit_paste</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>Colar</translation>
    </message>
    <message>
        <source>edit_select_all</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>Selecionar tudo</translation>
    </message>
    <message>
        <source>accessibility_newest</source>
        <extracomment>Read aloud, and a tooltip: a button that scrolls to the end of the conversation.</extracomment>
        <translation>Ir para a mensagem mais recente</translation>
    </message>
    <message>
        <source>composer_only_pictures</source>
        <extracomment>Over the conversation for a few seconds: a file that the customer adds is not a picture.</extracomment>
        <translation>Só é possível enviar imagens</translation>
    </message>
    <message>
        <source>composer_long_lines</source>
        <extracomment>Shown over the conversation for some seconds, when a pasted text had very long lines, which the editor has divided.</extracomment>
        <translation>As linhas muito longas foram divididas.</translation>
    </message>
    <message>
        <source>accessibility_previous_picture</source>
        <extracomment>Read aloud: the button in the image viewer that shows the picture before this one.</extracomment>
        <translation>Imagem anterior</translation>
    </message>
    <message>
        <source>accessibility_next_picture</source>
        <extracomment>Read aloud: the button in the image viewer that shows the picture after this one.</extracomment>
        <translation>Imagem seguinte</translation>
    </message>
    <message>
        <source>accessibility_attach</source>
        <extracomment>Read aloud: the button that lets the customer choose pictures to send along.</extracomment>
        <translation>Anexar imagens</translation>
    </message>
    <message>
        <source>accessibility_send</source>
        <extracomment>Read aloud: the button that sends the message.</extracomment>
        <translation>Enviar</translation>
    </message>
    <message>
        <source>accessibility_sending</source>
        <extracomment>Read aloud: the message is on its way.</extracomment>
        <translation>Enviando</translation>
    </message>
    <message>
        <source>accessibility_remove_attachment</source>
        <extracomment>Read aloud: the button that removes a chosen picture. %1 is its name.</extracomment>
        <translation>Remover %1</translation>
    </message>
    <message>
        <source>accessibility_attachment</source>
        <extracomment>Read aloud: a picture of a message. %1 is its number, %2 how many there are.</extracomment>
        <translation>Imagem %1 de %2</translation>
    </message>
    <message>
        <source>accessibility_picture</source>
        <extracomment>Read aloud: a picture that fills the screen.</extracomment>
        <translation>Imagem</translation>
    </message>
    <message>
        <source>accessibility_share</source>
        <extracomment>Read aloud: the button that offers to save or copy a picture.</extracomment>
        <translation>Compartilhar</translation>
    </message>
    <message>
        <source>message_copy</source>
        <extracomment>In the context menu of a message: copies the whole text of the message.</extracomment>
        <translation>Copiar mensagem</translation>
    </message>
    <message>
        <source>message_open_link</source>
        <extracomment>In the context menu of a message: opens a link. Its address follows after a colon if the message has several.</extracomment>
        <translation>Abrir link</translation>
    </message>
    <message>
        <source>message_copy_link</source>
        <extracomment>In the context menu of a message: copies the address of a link.</extracomment>
        <translation>Copiar link</translation>
    </message>
    <message>
        <source>picture_open</source>
        <extracomment>In the context menu of a picture in a message: shows it in the whole window.</extracomment>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>viewer_save</source>
        <extracomment>Choice in a menu: opens a dialog to save the picture as a file.</extracomment>
        <translation>Salvar imagem…</translation>
    </message>
    <message>
        <source>viewer_copy</source>
        <extracomment>Choice in a menu: copies the picture to the clipboard.</extracomment>
        <translation>Copiar imagem</translation>
    </message>
    <message>
        <source>viewer_saved</source>
        <extracomment>Confirms that the picture was saved. %1 is the folder or file.</extracomment>
        <translation>Salva em %1</translation>
    </message>
    <message>
        <source>viewer_copied</source>
        <extracomment>Confirms that the picture is on the clipboard.</extracomment>
        <translation>Copiada</translation>
    </message>
    <message>
        <source>viewer_save_failed</source>
        <extracomment>Reports that the picture could not be saved. %1 is the reason.</extracomment>
        <translation>Não foi possível salvar: %1</translation>
    </message>
    <message>
        <source>viewer_replace</source>
        <extracomment>Question before the picture replaces another file. %1 is the name of the file.</extracomment>
        <translation>“%1” já existe. Deseja substituí-lo?</translation>
    </message>
    <message>
        <source>error_offline</source>
        <extracomment>Beneath "Something went wrong": the device has no network.</extracomment>
        <translation>Não há conexão à internet.</translation>
    </message>
    <message>
        <source>error_timeout</source>
        <extracomment>Beneath "Something went wrong": no answer came within a minute.</extracomment>
        <translation>O servidor demora demais a responder.</translation>
    </message>
    <message>
        <source>error_unreachable</source>
        <extracomment>Beneath "Something went wrong": the server cannot be reached, or the connection to it fails.</extracomment>
        <translation>O servidor está inacessível.</translation>
    </message>
    <message>
        <source>error_response</source>
        <extracomment>Beneath "Something went wrong": the server has answered with an error, or with something that cannot be read.</extracomment>
        <translation>O servidor não respondeu como esperado.</translation>
    </message>
    <message>
        <source>error_retry</source>
        <extracomment>A button that repeats what has failed.</extracomment>
        <translation>Tentar novamente</translation>
    </message>
    <message>
        <source>composer_send_failed</source>
        <extracomment>Above the message editor: the message could not be sent. %1 is the reason, a sentence.</extracomment>
        <translation>Sua mensagem não foi enviada. %1</translation>
    </message>
    <message>
        <source>ticket_list_stale</source>
        <extracomment>Above the list of conversations: the list could not be loaded again, and is shown as it was before.</extracomment>
        <translation>Não está atualizado</translation>
    </message>
    <message>
        <source>ticket_draft</source>
        <extracomment>In the list, before the sender of the last message: the customer has begun a message and not sent it.</extracomment>
        <translation>Rascunho</translation>
    </message>
</context>
</TS>
