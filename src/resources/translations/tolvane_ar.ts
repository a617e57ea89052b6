<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar">
<context>
    <name>Library</name>
    <message>
        <source>main_title</source>
        <extracomment>Greeting at the top of the home screen. An icon of a waving hand follows directly, so the text ends with a space.</extracomment>
        <translation>مرحبًا! </translation>
    </message>
    <message>
        <source>main_subtitle</source>
        <extracomment>Second line of the home screen, beneath the greeting.</extracomment>
        <translation>كيف يمكننا مساعدتك؟</translation>
    </message>
    <message>
        <source>ticket_list_your_messages</source>
        <extracomment>Heading above the list of the customer's conversations.</extracomment>
        <translation>رسائلك</translation>
    </message>
    <message>
        <source>main_sender_customer_name</source>
        <extracomment>The sender's name on messages of the customer. Stands alone, so it starts with a capital letter.</extracomment>
        <translation>أنت</translation>
    </message>
    <message>
        <source>timeago_invalid</source>
        <extracomment>Shown instead of the age of a message if its date cannot be parsed.</extracomment>
        <translation>وقت غير معروف</translation>
    </message>
    <message>
        <source>timeago_now</source>
        <extracomment>Age of a message: less than a minute.</extracomment>
        <translation>الآن</translation>
    </message>
    <message>
        <source>timeago_more_than_a_week</source>
        <extracomment>Age of a message: a week or more.</extracomment>
        <translation>قبل أكثر من أسبوع</translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_minutes</source>
        <extracomment>Age of a message: 1 to 59 minutes. Stands alone, so it starts like a sentence. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>قبل %Ln دقيقة</numerusform>
            <numerusform>قبل دقيقة</numerusform>
            <numerusform>قبل دقيقتين</numerusform>
            <numerusform>قبل %Ln دقائق</numerusform>
            <numerusform>قبل %Ln دقيقة</numerusform>
            <numerusform>قبل %Ln دقيقة</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_hours</source>
        <extracomment>Age of a message: 1 to 24 hours. Stands alone, so it starts like a sentence. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>قبل %Ln ساعة</numerusform>
            <numerusform>قبل ساعة</numerusform>
            <numerusform>قبل ساعتين</numerusform>
            <numerusform>قبل %Ln ساعات</numerusform>
            <numerusform>قبل %Ln ساعة</numerusform>
            <numerusform>قبل %Ln ساعة</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_days</source>
        <extracomment>Age of a message: 1 to 6 days. Stands alone, so it starts like a sentence. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>قبل %Ln يوم</numerusform>
            <numerusform>قبل يوم</numerusform>
            <numerusform>قبل يومين</numerusform>
            <numerusform>قبل %Ln أيام</numerusform>
            <numerusform>قبل %Ln يومًا</numerusform>
            <numerusform>قبل %Ln يوم</numerusform>
        </translation>
    </message>
    <message>
        <source>host_You</source>
        <extracomment>On the customer's own messages; the host may translate it.</extracomment>
        <translation>أنت</translation>
    </message>
    <message>
        <source>host_Back</source>
        <extracomment>The button that leaves a conversation or a picture; the host may translate it.</extracomment>
        <translation>رجوع</translation>
    </message>
    <message>
        <source>host_Image</source>
        <extracomment>The title of a picture that is shared; the host may translate it.</extracomment>
        <translation>صورة</translation>
    </message>
    <message>
        <source>host_No conversations yet</source>
        <extracomment>On the home screen, before the first conversation; the host may translate it.</extracomment>
        <translation>لا توجد محادثات بعد</translation>
    </message>
    <message>
        <source>host_Start a new conversation to get help</source>
        <extracomment>Beneath the line that there are no conversations yet; the host may translate it.</extracomment>
        <translation>ابدأ محادثة جديدة للحصول على المساعدة</translation>
    </message>
    <message>
        <source>host_Something went wrong</source>
        <extracomment>Where loading has failed; the host may translate it.</extracomment>
        <translation>حدث خطأ ما</translation>
    </message>
    <message>
        <source>ticket_ai_agent</source>
        <extracomment>The sender of a message of the machine, which has no name; the same words as where it is typing.</extracomment>
        <translation>وكيل الذكاء الاصطناعي</translation>
    </message>
    <message>
        <source>ticket_closed</source>
        <extracomment>In the last row of a conversation that support has closed, after an icon of a lock. The customer can still write.</extracomment>
        <translation>هذه المحادثة مغلقة</translation>
    </message>
    <message>
        <source>ticket_ai_is_typing</source>
        <extracomment>Shown while the AI agent prepares an answer. Animated dots may follow, so there is no full stop.</extracomment>
        <translation>وكيل الذكاء الاصطناعي يكتب الآن</translation>
    </message>
    <message>
        <source>accessibility_close</source>
        <extracomment>Read aloud: the button that closes the messenger.</extracomment>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>help_button</source>
        <extracomment>On a button of the host that opens the messenger. Read aloud with the number of unread conversations after it.</extracomment>
        <translation>مساعدة</translation>
    </message>
    <message>
        <source>accessibility_unread</source>
        <extracomment>Read aloud: the dot on a conversation with messages that the customer has not seen.</extracomment>
        <translation>غير مقروءة</translation>
    </message>
    <message>
        <source>accessibility_loading</source>
        <extracomment>Read aloud: the progress indicator.</extracomment>
        <translation>جارٍ التحميل</translation>
    </message>
    <message>
        <source>ticket_new_discussion</source>
        <extracomment>Title of a conversation that the customer is about to begin.</extracomment>
        <translation>محادثة جديدة</translation>
    </message>
    <message>
        <source>ticket_support</source>
        <extracomment>Shown instead of the agent's name if that is not known. Also the title of a conversation.</extracomment>
        <translation>الدعم</translation>
    </message>
    <message>
        <source>ticket_support_team</source>
        <extracomment>Beneath the title of a conversation, while the opening hours are not known.</extracomment>
        <translation>فريق الدعم</translation>
    </message>
    <message>
        <source>ticket_new_hint</source>
        <extracomment>Shown instead of the messages if the customer has not written any yet.</extracomment>
        <translation>اكتب رسالتك الأولى. يسعدنا أن نساعدك.</translation>
    </message>
    <message>
        <source>ticket_cs_available</source>
        <extracomment>Beneath the title of a conversation: support agents are available now.</extracomment>
        <translation>متاح الآن</translation>
    </message>
    <message>
        <source>ticket_cs_not_available</source>
        <extracomment>Beneath the title of a conversation: nobody is available, and it is not known when somebody will be.</extracomment>
        <translation>غير متاح</translation>
    </message>
    <message>
        <source>ticket_cs_available_day</source>
        <extracomment>Beneath the title of a conversation: nobody is available, but somebody will be within a day.</extracomment>
        <translation>نعود خلال يوم</translation>
    </message>
    <message>
        <source>ticket_cs_available_days</source>
        <extracomment>Beneath the title of a conversation: nobody is available, but somebody will be within some days.</extracomment>
        <translation>نعود بعد بضعة أيام</translation>
    </message>
    <message numerus="yes">
        <source>%lld ticket_cs_available_hours</source>
        <extracomment>Beneath the title of a conversation: nobody is available, but somebody will be in 1 to 7 hours. Keep %Ln, the number, in the plural forms that contain the number.</extracomment>
        <translation>
            <numerusform>نعود بعد %Ln ساعة</numerusform>
            <numerusform>نعود بعد ساعة</numerusform>
            <numerusform>نعود بعد ساعتين</numerusform>
            <numerusform>نعود بعد %Ln ساعات</numerusform>
            <numerusform>نعود بعد %Ln ساعة</numerusform>
            <numerusform>نعود بعد %Ln ساعة</numerusform>
        </translation>
    </message>
    <message>
        <source>composer_placeholder</source>
        <extracomment>Placeholder of the empty message field.</extracomment>
        <translation>اكتب رسالة</translation>
    </message>
    <message>
        <source>composer_drop_hint</source>
        <extracomment>Over the conversation while pictures are dragged across it.</extracomment>
        <translation>أفلت الصور هنا</translation>
    </message>
    <message>
        <source>composer_attach_files</source>
        <extracomment>In a menu for attachments: opens the system's dialog for files.</extracomment>
        <translation>اختيار صور…</translation>
    </message>
    <message>
        <source>composer_attach_window</source>
        <extracomment>In the same menu: attaches a picture of the application's window, without the messenger.</extracomment>
        <translation>إرفاق صورة لهذه النافذة</translation>
    </message>
    <message>
        <source>edit_undo</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>تراجع</translation>
    </message>
    <message>
        <source>edit_cut</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>قص</translation>
    </message>
    <message>
        <source>edit_copy</source>
        <extracomment>In context menus: copies text.</extracomment>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>edit_paste</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>لصق</translation>
    </message>
    <message>
        <source>edit_select_all</source>
        <extracomment>In the context menu of the message editor.</extracomment>
        <translation>تحديد الكل</translation>
    </message>
    <message>
        <source>accessibility_newest</source>
        <extracomment>Read aloud, and a tooltip: a button that scrolls to the end of the conversation.</extracomment>
        <translation>الانتقال إلى أحدث رسالة</translation>
    </message>
    <message>
        <source>composer_only_pictures</source>
        <extracomment>Over the conversation for a few seconds: a file that the customer adds is not a picture.</extracomment>
        <translation>يمكن إرسال الصور فقط</translation>
    </message>
    <message>
        <source>composer_long_lines</source>
        <extracomment>Shown over the conversation for some seconds, when a pasted text had very long lines, which the editor has divided.</extracomment>
        <translation>تم تقسيم الأسطر الطويلة جدًا.</translation>
    </message>
    <message>
        <source>accessibility_previous_picture</source>
        <extracomment>Read aloud: the button in the image viewer that shows the picture before this one.</extracomment>
        <translation>الصورة السابقة</translation>
    </message>
    <message>
        <source>accessibility_next_picture</source>
        <extracomment>Read aloud: the button in the image viewer that shows the picture after this one.</extracomment>
        <translation>الصورة التالية</translation>
    </message>
    <message>
        <source>accessibility_attach</source>
        <extracomment>Read aloud: the button that lets the customer choose pictures to send along.</extracomment>
        <translation>إرفاق صور</translation>
    </message>
    <message>
        <source>accessibility_send</source>
        <extracomment>Read aloud: the button that sends the message.</extracomment>
        <translation>إرسال</translation>
    </message>
    <message>
        <source>accessibility_sending</source>
        <extracomment>Read aloud: the message is on its way.</extracomment>
        <translation>جارٍ الإرسال</translation>
    </message>
    <message>
        <source>accessibility_remove_attachment</source>
        <extracomment>Read aloud: the button that removes a chosen picture. %1 is its name.</extracomment>
        <translation>إزالة %1</translation>
    </message>
    <message>
        <source>accessibility_attachment</source>
        <extracomment>Read aloud: a picture of a message. %1 is its number, %2 how many there are.</extracomment>
        <translation>الصورة %1 من %2</translation>
    </message>
    <message>
        <source>accessibility_picture</source>
        <extracomment>Read aloud: a picture that fills the screen.</extracomment>
        <translation>صورة</translation>
    </message>
    <message>
        <source>accessibility_share</source>
        <extracomment>Read aloud: the button that offers to save or copy a picture.</extracomment>
        <translation>مشاركة</translation>
    </message>
    <message>
        <source>message_copy</source>
        <extracomment>In the context menu of a message: copies the whole text of the message.</extracomment>
        <translation>نسخ الرسالة</translation>
    </message>
    <message>
        <source>message_open_link</source>
        <extracomment>In the context menu of a message: opens a link. Its address follows after a colon if the message has several.</extracomment>
        <translation>فتح الرابط</translation>
    </message>
    <message>
        <source>message_copy_link</source>
        <extracomment>In the context menu of a message: copies the address of a link.</extracomment>
        <translation>نسخ الرابط</translation>
    </message>
    <message>
        <source>picture_open</source>
        <extracomment>In the context menu of a picture in a message: shows it in the whole window.</extracomment>
        <translation>فتح</translation>
    </message>
    <message>
        <source>viewer_save</source>
        <extracomment>Choice in a menu: opens a dialog to save the picture as a file.</extracomment>
        <translation>حفظ الصورة…</translation>
    </message>
    <message>
        <source>viewer_copy</source>
        <extracomment>Choice in a menu: copies the picture to the clipboard.</extracomment>
        <translation>نسخ الصورة</translation>
    </message>
    <message>
        <source>viewer_saved</source>
        <extracomment>Confirms that the picture was saved. %1 is the folder or file.</extracomment>
        <translation>حُفظت في %1</translation>
    </message>
    <message>
        <source>viewer_copied</source>
        <extracomment>Confirms that the picture is on the clipboard.</extracomment>
        <translation>تم النسخ</translation>
    </message>
    <message>
        <source>viewer_save_failed</source>
        <extracomment>Reports that the picture could not be saved. %1 is the reason.</extracomment>
        <translation>تعذّر الحفظ: %1</translation>
    </message>
    <message>
        <source>viewer_replace</source>
        <extracomment>Question before the picture replaces another file. %1 is the name of the file.</extracomment>
        <translation>الملف «%1» موجود بالفعل. هل تريد استبداله؟</translation>
    </message>
    <message>
        <source>error_offline</source>
        <extracomment>Beneath "Something went wrong": the device has no network.</extracomment>
        <translation>لا يوجد اتصال بالإنترنت.</translation>
    </message>
    <message>
        <source>error_timeout</source>
        <extracomment>Beneath "Something went wrong": no answer came within a minute.</extracomment>
        <translation>يستغرق الخادم وقتًا طويلًا للرد.</translation>
    </message>
    <message>
        <source>error_unreachable</source>
        <extracomment>Beneath "Something went wrong": the server cannot be reached, or the connection to it fails.</extracomment>
        <translation>تعذّر الوصول إلى الخادم.</translation>
    </message>
    <message>
        <source>error_response</source>
        <extracomment>Beneath "Something went wrong": the server has answered with an error, or with something that cannot be read.</extracomment>
        <translation>لم يستجب الخادم كما هو متوقع.</translation>
    </message>
    <message>
        <source>error_retry</source>
        <extracomment>A button that repeats what has failed.</extracomment>
        <translation>إعادة المحاولة</translation>
    </message>
    <message>
        <source>composer_send_failed</source>
        <extracomment>Above the message editor: the message could not be sent. %1 is the reason, a sentence.</extracomment>
        <translation>لم يتم إرسال رسالتك. %1</translation>
    </message>
    <message>
        <source>ticket_list_stale</source>
        <extracomment>Above the list of conversations: the list could not be loaded again, and is shown as it was before.</extracomment>
        <translation>غير محدّثة</translation>
    </message>
    <message>
        <source>ticket_draft</source>
        <extracomment>In the list, before the sender of the last message: the customer has begun a message and not sent it.</extracomment>
        <translation>مسودة</translation>
    </message>
</context>
</TS>
