// SPDX-License-Identifier: MIT
// The composer: the agent's identity, the text and the images. Each ticket has its own draft.
import {byId, element, fillAvatar} from './dom.js';
import {uploadPicture, sendReply} from './api.js';

const form = byId('composer');
const field = byId('message');
const attachments = byId('attachments');

const drafts = new Map();
let ticketId = null;
let isSending = false;
let reportError = () => {};

const draftOf = (id) => drafts.get(id) ?? {text: '', images: []};

// ---- The agent's identity

const identity = {name: '', picture: '', pictureUrl: ''};

function restoreIdentity() {
    try {
        Object.assign(identity, JSON.parse(localStorage.getItem('agentIdentity')));
    } catch {
        // Invalid data of an older version are ignored.
    }
    byId('agent-name').value = identity.name;
    showIdentity();
}

function showIdentity() {
    const isHuman = form.elements.as.value === 'human agent';
    byId('identity').hidden = !isHuman;
    byId('remove-picture').hidden = !identity.picture;
    const button = byId('choose-picture');
    fillAvatar(button, identity.name || '+', identity.pictureUrl);
    // The picture may be missing after a change of the database.
    button.querySelector('img')?.addEventListener('error',
        () => changeIdentity({picture: '', pictureUrl: ''}));
}

function changeIdentity(change) {
    Object.assign(identity, change);
    localStorage.setItem('agentIdentity', JSON.stringify(identity));
    showIdentity();
}

async function choosePicture(file) {
    try {
        const {path, url} = await uploadPicture(file);
        changeIdentity({picture: path, pictureUrl: new URL(url).pathname});
    } catch (error) {
        reportError(error);
    }
}

// ---- The draft

function showDraft() {
    const {text, images} = draftOf(ticketId);
    if (field.value !== text)
        field.value = text;
    attachments.hidden = images.length === 0;
    attachments.replaceChildren(...images.map((image) => {
        const remove = element('button', {
            type: 'button', 'aria-label': `Remove ${image.file.name}`,
        }, '×');
        remove.addEventListener('click', () => {
            URL.revokeObjectURL(image.url);
            changeDraft({images: draftOf(ticketId).images.filter((other) => other !== image)});
            field.focus();
        });
        return element('li', {}, element('img', {src: image.url, alt: image.file.name}), remove);
    }));
    byId('send').disabled = isSending || (text.trim() === '' && images.length === 0);
    field.readOnly = isSending;
}

function changeDraft(change) {
    drafts.set(ticketId, {...draftOf(ticketId), ...change});
    showDraft();
}

export function addImages(files) {
    const images = [...files].filter((file) => file.type.startsWith('image/'))
        .map((file) => ({file, url: URL.createObjectURL(file)}));
    if (files.length > images.length)
        reportError(new Error('Only images can be sent.'));
    if (ticketId && !isSending && images.length)
        changeDraft({images: [...draftOf(ticketId).images, ...images]});
}

async function send() {
    const id = ticketId;
    const {text, images} = draftOf(id);
    if (isSending || (text.trim() === '' && images.length === 0))
        return;
    isSending = true;
    showDraft();
    try {
        const {name, picture} = identity;
        await sendReply(id, {message: text, as: form.elements.as.value, name, picture},
            images.map((image) => image.file));
        images.forEach((image) => URL.revokeObjectURL(image.url));
        drafts.delete(id);
    } catch (error) {
        reportError(error);
    } finally {
        isSending = false;
        showDraft();
    }
}

/** Shows the draft of a ticket. */
export function showDraftOf(id) {
    ticketId = id;
    showDraft();
}

export const focusComposer = () => field.focus();

function onFilesChosen(input, callback) {
    input.addEventListener('change', () => {
        callback([...input.files]);
        input.value = '';
    });
}

function acceptDrops(area) {
    const hasFiles = (event) => event.dataTransfer?.types.includes('Files');
    const highlight = (isOver) => area.classList.toggle('dropping', isOver);
    area.addEventListener('dragover', (event) => {
        if (hasFiles(event)) {
            event.preventDefault();
            highlight(true);
        }
    });
    area.addEventListener('dragleave', () => highlight(false));
    area.addEventListener('drop', (event) => {
        highlight(false);
        if (hasFiles(event)) {
            event.preventDefault();
            addImages(event.dataTransfer.files);
        }
    });
}

/** `report` is called with each error. */
export function startComposer(report) {
    reportError = report;
    restoreIdentity();
    for (const choice of form.elements.as)
        choice.addEventListener('change', showIdentity);
    byId('agent-name').addEventListener('input',
        (event) => changeIdentity({name: event.target.value}));
    byId('choose-picture').addEventListener('click', () => byId('picture-file').click());
    byId('remove-picture').addEventListener('click', () => {
        changeIdentity({picture: '', pictureUrl: ''});
        byId('choose-picture').focus();
    });
    onFilesChosen(byId('picture-file'), ([file]) => file && choosePicture(file));
    byId('attach').addEventListener('click', () => byId('attachment-files').click());
    onFilesChosen(byId('attachment-files'), addImages);
    acceptDrops(byId('conversation'));
    field.addEventListener('input', () => changeDraft({text: field.value}));
    field.addEventListener('keydown', (event) => {
        if (event.key === 'Enter' && (event.ctrlKey || event.metaKey)) {
            event.preventDefault();
            send();
        }
    });
    field.addEventListener('paste', (event) => {
        if (event.clipboardData.files.length) {
            event.preventDefault();
            addImages(event.clipboardData.files);
        }
    });
    form.addEventListener('submit', (event) => {
        event.preventDefault();
        send();
    });
}
