// SPDX-License-Identifier: MIT
// Writing an answer: who writes, the text, the images. Each ticket keeps its draft until it is sent.
import {byId, element, fillAvatar} from './dom.js';
import {keepPicture, sendAnswer} from './api.js';

const form = byId('composer');
const field = byId('message');
const strip = byId('attachments');

const drafts = new Map();
let ticketId = null;
let isSending = false;
let failed = () => {};

const draftOf = (id) => drafts.get(id) ?? {text: '', images: []};

// ---- Who writes

const persona = {name: '', picture: '', pictureUrl: ''};

function restorePersona() {
    try {
        Object.assign(persona, JSON.parse(localStorage.getItem('persona')));
    } catch {
        // What an older page has kept is no loss.
    }
    byId('agent-name').value = persona.name;
    showPersona();
}

function showPersona() {
    const isHuman = form.elements.as.value === 'human agent';
    byId('persona').hidden = !isHuman;
    byId('remove-picture').hidden = !persona.picture;
    const button = byId('choose-picture');
    fillAvatar(button, persona.name || '+', persona.pictureUrl);
    // Another database may not have it.
    button.querySelector('img')?.addEventListener('error',
        () => changePersona({picture: '', pictureUrl: ''}));
}

function changePersona(change) {
    Object.assign(persona, change);
    localStorage.setItem('persona', JSON.stringify(persona));
    showPersona();
}

async function choosePicture(file) {
    try {
        const {path, url} = await keepPicture(file);
        changePersona({picture: path, pictureUrl: new URL(url).pathname});
    } catch (error) {
        failed(error);
    }
}

// ---- What is written

function showDraft() {
    const {text, images} = draftOf(ticketId);
    if (field.value !== text)
        field.value = text;
    strip.hidden = images.length === 0;
    strip.replaceChildren(...images.map((image) => {
        const remove = element('button', {
            type: 'button', 'aria-label': `Remove ${image.file.name}`,
        }, '×');
        remove.addEventListener('click', () => {
            URL.revokeObjectURL(image.url);
            keepDraft({images: draftOf(ticketId).images.filter((other) => other !== image)});
            field.focus();
        });
        return element('li', {}, element('img', {src: image.url, alt: image.file.name}), remove);
    }));
    byId('send').disabled = isSending || (text.trim() === '' && images.length === 0);
    field.readOnly = isSending;
}

function keepDraft(change) {
    drafts.set(ticketId, {...draftOf(ticketId), ...change});
    showDraft();
}

export function addImages(files) {
    const images = [...files].filter((file) => file.type.startsWith('image/'))
        .map((file) => ({file, url: URL.createObjectURL(file)}));
    if (files.length > images.length)
        failed(new Error('Only images can be sent.'));
    if (ticketId && !isSending && images.length)
        keepDraft({images: [...draftOf(ticketId).images, ...images]});
}

async function send() {
    const id = ticketId;
    const {text, images} = draftOf(id);
    if (isSending || (text.trim() === '' && images.length === 0))
        return;
    isSending = true;
    showDraft();
    try {
        const {name, picture} = persona;
        await sendAnswer(id, {message: text, as: form.elements.as.value, name, picture},
            images.map((image) => image.file));
        images.forEach((image) => URL.revokeObjectURL(image.url));
        drafts.delete(id);
    } catch (error) {
        failed(error);
    } finally {
        isSending = false;
        showDraft();
    }
}

/** Shows the draft of another ticket. */
export function composeFor(id) {
    ticketId = id;
    showDraft();
}

export const focusComposer = () => field.focus();

function takeFiles(input, take) {
    input.addEventListener('change', () => {
        take([...input.files]);
        input.value = '';
    });
}

function takeDrops(area) {
    const hasFiles = (event) => event.dataTransfer?.types.includes('Files');
    const mark = (isOver) => area.classList.toggle('dropping', isOver);
    area.addEventListener('dragover', (event) => {
        if (hasFiles(event)) {
            event.preventDefault();
            mark(true);
        }
    });
    area.addEventListener('dragleave', () => mark(false));
    area.addEventListener('drop', (event) => {
        mark(false);
        if (hasFiles(event)) {
            event.preventDefault();
            addImages(event.dataTransfer.files);
        }
    });
}

/** `report` hears what goes wrong. */
export function startComposer(report) {
    failed = report;
    restorePersona();
    for (const choice of form.elements.as)
        choice.addEventListener('change', showPersona);
    byId('agent-name').addEventListener('input',
        (event) => changePersona({name: event.target.value}));
    byId('choose-picture').addEventListener('click', () => byId('picture-file').click());
    byId('remove-picture').addEventListener('click', () => {
        changePersona({picture: '', pictureUrl: ''});
        byId('choose-picture').focus();
    });
    takeFiles(byId('picture-file'), ([file]) => file && choosePicture(file));
    byId('attach').addEventListener('click', () => byId('attachment-files').click());
    takeFiles(byId('attachment-files'), addImages);
    takeDrops(byId('conversation'));
    field.addEventListener('input', () => keepDraft({text: field.value}));
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
