// SPDX-License-Identifier: MIT
// The dialog for colours and logos, which are the same for all customers.
import {contrasts} from './contrast.mjs';
import {byId, element} from './dom.js';
import {uploadPicture, readSettings, saveBranding} from './api.js';

const appearances = ['Light', 'Dark'];
const colours = [
    ['primary', 'Primary'],
    ['accent', 'Accent'],
    ['chatBackground', 'Background'],
    ['fontColorBasic', 'Text'],
    ['bubbleUser', 'Customer’s bubble'],
    ['fontColorUserBubble', 'Customer’s text'],
    ['bubbleAgent', 'Agent’s bubble'],
    ['fontColorAgentBubble', 'Agent’s text'],
];

const dialog = byId('branding-dialog');
let branding = {};

const withHash = (colour) => (colour.startsWith('#') ? colour : `#${colour}`).toLowerCase();

function colourInput(name, label, appearance) {
    const key = name + appearance;
    const input = element('input', {
        type: 'color', id: key, value: withHash(branding[key]),
        'aria-label': `${label}, ${appearance.toLowerCase()}`,
    });
    input.addEventListener('input', () => {
        branding[key] = input.value;
        renderPreviews();
    });
    return input;
}

function showError(error) {
    byId('branding-failure').textContent = error?.message ?? '';
}

async function uploadLogo(key, file) {
    try {
        branding[key] = (await uploadPicture(file)).url;
        showError(null);
        render();
    } catch (error) {
        showError(error);
    }
}

function logoCell(appearance) {
    const key = `logo${appearance}`;
    const label = `${appearance.toLowerCase()} logo`;
    const file = element('input', {
        type: 'file', id: key, accept: 'image/png,image/jpeg,image/gif,image/webp', hidden: true,
    });
    file.addEventListener('change', () => file.files[0] && uploadLogo(key, file.files[0]));
    const choose = element('button', {
        type: 'button', 'aria-label': `Choose the ${label}`,
    }, branding[key] ? 'Change' : 'Choose');
    choose.addEventListener('click', () => file.click());
    const remove = element('button', {
        type: 'button', 'aria-label': `Remove the ${label}`, hidden: !branding[key],
    }, 'Remove');
    remove.addEventListener('click', () => {
        delete branding[key];
        render();
    });
    return element('td', {}, file, choose, ' ', remove);
}

function preview(appearance) {
    const logo = branding[`logo${appearance}`];
    const phone = element('div', {className: 'preview-phone'},
        element('div', {className: 'preview-head'},
            logo ? element('img', {src: logo, alt: ''}) : 'Logo'),
        element('p', {className: 'preview-agent'}, 'How can we help?'),
        element('p', {className: 'preview-user'}, 'Where is my parcel?'),
        element('p', {className: 'preview-basic'}, 'Maya · now'),
        element('span', {className: 'preview-button'}, 'New'));
    for (const [name] of colours)
        phone.style.setProperty(`--${name}`, withHash(branding[name + appearance]));
    return phone;
}

const number = new Intl.NumberFormat(undefined, {maximumFractionDigits: 1});

function contrastWarning(appearance, {what, ratio, least}) {
    return element('li', {}, `${what}, ${appearance.toLowerCase()}: ${number.format(ratio)}`
        + ` instead of ${number.format(least)}`);
}

function renderContrasts() {
    const warnings = appearances.flatMap((appearance) => contrasts(branding, appearance)
        .filter(({isEnough}) => !isEnough)
        .map((result) => contrastWarning(appearance, result)));
    byId('branding-contrast').textContent = warnings.length > 0
        ? 'These colours are hard to read for some people. They need more contrast:'
        : 'Every text has enough contrast (WCAG AA).';
    byId('branding-warnings').replaceChildren(...warnings);
}

function renderPreviews() {
    byId('branding-previews').replaceChildren(...appearances.map(preview));
    renderContrasts();
}

function render() {
    byId('branding-colours').replaceChildren(...colours.map(([name, label]) => element('tr', {},
        element('th', {scope: 'row'}, label),
        ...appearances.map((appearance) =>
            element('td', {}, colourInput(name, label, appearance))))));
    byId('branding-logos').replaceChildren(element('tr', {},
        element('th', {scope: 'row'}, 'Logo'), ...appearances.map(logoCell)));
    renderPreviews();
}

async function open(reportError) {
    try {
        ({branding} = await readSettings());
        showError(null);
        render();
        dialog.showModal();
    } catch (error) {
        reportError(error);
    }
}

/** `saved` is called after each save, `reportError` when the settings cannot be read. */
export function startBranding(saved, reportError) {
    byId('open-branding').addEventListener('click', () => open(reportError));
    dialog.addEventListener('submit', async (event) => {
        event.preventDefault();
        try {
            await saveBranding(branding);
            dialog.close();
            saved();
        } catch (error) {
            showError(error);
        }
    });
}
