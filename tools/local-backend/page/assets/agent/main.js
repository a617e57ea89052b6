// SPDX-License-Identifier: MIT
// Connects the parts of the page, and handles keys and switches for the whole page.
import {byId, prepareDialogs} from './dom.js';
import {changeTicket, listen, readSettings, readTickets, saveAutomatic} from './api.js';
import {selectTicket, focusTickets, replaceTickets, startTickets, updateTicket} from './tickets.js';
import {
    refreshConversation, showConversation, shownTicket, startConversation,
} from './conversation.js';
import {showDraftOf, focusComposer, startComposer} from './composer.js';
import {openPush, startPush} from './push.js';
import {startBranding} from './branding.js';
import {startSchedules} from './schedules.js';

const noticeDuration = 4000;
let selectedId = null;

function show(id, text) {
    const target = byId(id);
    target.textContent = text;
    clearTimeout(target.timer);
    const duration = noticeDuration * (id === 'failure' ? 2 : 1);
    target.timer = setTimeout(() => { target.textContent = ''; }, duration);
}

const showNotice = (text) => show('notice', text);
const showError = (error) => show('failure', error.message);

/** Runs a function and shows its error, if any. */
async function runReportingErrors(work) {
    try {
        await work();
    } catch (error) {
        showError(error);
    }
}

// The URL contains the ticket's id, so that the browser's back, forward and reload work.
const openTicket = (id) => { location.hash = id ? encodeURIComponent(id) : ''; };

async function showTicketOfUrl() {
    const id = decodeURIComponent(location.hash.slice(1)) || null;
    const isNew = id !== selectedId;
    selectedId = id;
    document.body.dataset.pane = id ? 'conversation' : 'tickets';
    selectTicket(id);
    showDraftOf(id);
    await showConversation(id);
    if (isNew && id)
        focusComposer();
}

function backToTickets() {
    document.body.dataset.pane = 'tickets';
    focusTickets();
}

// ---- Events of the backend

async function readAll() {
    byId('connection').dataset.state = 'live';
    byId('connection').textContent = 'Live';
    await runReportingErrors(async () => {
        replaceTickets(await readTickets());
        selectTicket(selectedId);
    });
    await Promise.all([showSettings(), refreshConversation()]);
}

function showDisconnected() {
    byId('connection').dataset.state = 'lost';
    byId('connection').textContent = 'Reconnecting';
}

function handleTicketChange(ticket) {
    updateTicket(ticket);
    selectTicket(selectedId);
    if (ticket.id === selectedId)
        refreshConversation();
}

const showSettings = () => runReportingErrors(async () => {
    byId('automatic').checked = (await readSettings()).automatic;
    byId('automatic').disabled = false;
});

// ---- Actions of the agent

async function changeShownTicket(change) {
    const ticket = shownTicket();
    if (!ticket)
        return;
    await runReportingErrors(() => changeTicket(ticket.id, change));
    await refreshConversation();
}

const changeState = () =>
    changeShownTicket({state: shownTicket()?.state === 'open' ? 'closed' : 'open'});
const changeAssignee = () => changeShownTicket({
    assignee: shownTicket()?.assignee === 'ai agent' ? 'human agent' : 'ai agent',
});

const keys = {
    '/': () => byId('search').focus(),
    '?': () => byId('shortcuts-dialog').showModal(),
    'l': backToTickets,
    'r': () => shownTicket() && focusComposer(),
    'a': changeAssignee,
    'c': changeState,
    'p': () => openPush(shownTicket()),
    'd': () => { byId('details').open = !byId('details').open; },
    'escape': backToTickets,
};

const isTextInput = (target) =>
    target.matches('textarea, select, input:not([type="checkbox"], [type="radio"])');

function handleKey(event) {
    if (event.ctrlKey || event.altKey || event.metaKey || document.querySelector('dialog[open]'))
        return;
    const key = event.key.toLowerCase();
    if (!keys[key] || (isTextInput(event.target) && key !== 'escape'))
        return;
    event.preventDefault();
    keys[key]();
}

function start() {
    prepareDialogs();
    startTickets((id) =>
        (id === selectedId ? showTicketOfUrl().then(focusComposer) : openTicket(id)));
    startConversation(showError);
    startComposer(showError);
    startPush(() => showNotice('The push has been sent.'));
    startBranding(() => showNotice('The branding has been saved.'), showError);
    startSchedules(() => showNotice('The schedules have been saved.'), showError);
    byId('automatic').addEventListener('change', (event) =>
        runReportingErrors(() => saveAutomatic(event.target.checked)).then(showSettings));
    byId('assignee').addEventListener('change',
        (event) => changeShownTicket({assignee: event.target.value}));
    byId('ticket-automatic').addEventListener('change',
        (event) => changeShownTicket({automatic: event.target.checked}));
    byId('change-state').addEventListener('click', changeState);
    byId('open-push').addEventListener('click', () => openPush(shownTicket()));
    byId('open-shortcuts').addEventListener('click', keys['?']);
    byId('back').addEventListener('click', backToTickets);
    document.addEventListener('keydown', handleKey);
    window.addEventListener('hashchange', showTicketOfUrl);
    showTicketOfUrl();
    listen({
        connected: readAll, disconnected: showDisconnected,
        ticketChanged: handleTicketChange, settingsChanged: showSettings,
    });
}

start();
